// `tally sell`: one transaction with one new ticket, its bets checked as Accept Bet checks
// them, finished with the amount paid, the card saved; the new ticket's number printed.

#include <QStringList>
#include <algorithm>
#include <cctype>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "betting/betting_state.h"
#include "cli/betting_window.h"
#include "cli/command.h"
#include "cli/command_helpers.h"
#include "cli/console_ports.h"
#include "files/race_file_io.h"
#include "model/bet_type.h"
#include "model/error_path.h"
#include "model/race_file.h"

namespace tt::cli {

namespace {

// One --bet as the host would type it into Place Bet.
struct BetWords {
    std::string amount;  // as typed
    int type = 0;
    std::vector<std::int64_t> picks;
    bool boxed = false;
};

std::string Lower(std::string s) {
    for (char& ch : s) ch = static_cast<char>(std::tolower(static_cast<unsigned char>(ch)));
    return s;
}

// A code 1 to 11, a bet type's name in any case, or a key letter of the type list.
int TypeOf(const std::string& word) {
    if (!word.empty() && std::all_of(word.begin(), word.end(), [](char ch) {
            return std::isdigit(static_cast<unsigned char>(ch));
        })) {
        const int code = word.size() <= 2 ? std::stoi(word) : 0;
        return IsBetType(code) ? code : 0;
    }
    for (int code = 1; code <= kAcrossTheBoard; ++code)
        if (Lower(G.BetTypeName(code)) == Lower(word)) return code;
    static const std::string kKeys = "WPSETDA";
    static const int kCodes[] = {1, 2, 3, 4, 5, 6, 11};
    if (word.size() == 1) {
        const std::size_t k = kKeys.find(static_cast<char>(std::toupper(word[0])));
        if (k != std::string::npos) return kCodes[k];
    }
    return 0;
}

// Bet numbers joined by commas.
std::optional<std::vector<std::int64_t>> PicksOf(const std::string& word) {
    std::vector<std::int64_t> picks;
    const QStringList parts = QString::fromStdString(word).split(',');
    for (const QString& part : parts) {
        bool ok = false;
        const int n = part.toInt(&ok);
        if (!ok || n < 0 || n > 32767) return std::nullopt;
        picks.push_back(n);
    }
    if (picks.empty()) return std::nullopt;
    return picks;
}

// "AMT TYPE PICKS [box]": TYPE may be several words ("Daily Double"); PICKS may be left out.
std::optional<BetWords> ParseBet(const std::string& text, std::ostream& err) {
    std::vector<std::string> words;
    for (const QString& w : QString::fromStdString(text).split(' ', Qt::SkipEmptyParts))
        words.push_back(w.toStdString());
    BetWords bet;
    if (words.size() >= 2 && Lower(words.back()) == "box") {
        bet.boxed = true;
        words.pop_back();
    }
    if (words.size() < 2) {
        err << "tally: a bet is AMT TYPE PICKS [box]: " << text << "\n";
        return std::nullopt;
    }
    bet.amount = words.front();
    auto join = [&](std::size_t from, std::size_t to) {
        std::string s;
        for (std::size_t i = from; i < to; ++i) s += (i > from ? " " : "") + words[i];
        return s;
    };
    // With picks: the words between the amount and the last; without: all after the amount.
    if (words.size() >= 3) {
        const std::optional<std::vector<std::int64_t>> picks = PicksOf(words.back());
        const int type = TypeOf(join(1, words.size() - 1));
        if (picks && type != 0) {
            bet.type = type;
            bet.picks = *picks;
        }
    }
    if (bet.type == 0) bet.type = TypeOf(join(1, words.size()));
    if (bet.type == 0) {
        err << "tally: no bet type in: " << text << "\n";
        return std::nullopt;
    }
    if (bet.boxed && !IsExotic(BetTypeOf(bet.type))) {
        err << "tally: only Exacta and Trifecta bets can be boxed: " << text << "\n";
        return std::nullopt;
    }
    return bet;
}

// The bet typed into the bet area and accepted; false when Accept Bet refused it or it did not
// fit the window.
enum class Placed { kAccepted, kRefused, kTooManyPicks };
Placed Place(PlaceBetsLogic& p, const BetWords& bet) {
    p.txtBetAmt.text = bet.amount;
    p.txtBetAmt_Change();
    // The type is chosen in the list, which holds only the race's offered types.
    for (int i = 0; i < p.comBetType.list.ListCount(); ++i)
        if (p.comBetType.list.ItemData(i) == bet.type) {
            if (p.comBetType.Select(i)) p.comBetType_Click();
            break;
        }
    if (bet.boxed && p.chkBoxed.enabled) {
        p.chkBoxed.value = 1;
        p.chkBoxed_Click();
    }
    for (std::size_t k = 0; k < bet.picks.size(); ++k) {
        const int i = static_cast<int>(k) + 1;
        ComboState& list = p.comPick[static_cast<std::size_t>(i)];
        // A type the race does not offer is refused by Accept Bet; other lists are not there.
        if (!list.state.visible) {
            if (!p.comBetType.list.HasSelection()) break;
            return Placed::kTooManyPicks;
        }
        // A number no racer has leaves the list without a choice.
        for (int e = 0; e < list.list.ListCount(); ++e)
            if (list.list.ItemData(e) == bet.picks[k]) {
                if (list.Select(e)) p.comPick_Click(i);
                break;
            }
    }
    p.cmdAcceptBet_Click();
    return G.CancelFlag ? Placed::kRefused : Placed::kAccepted;
}

int Sell(Context& c) {
    const QStringList files = c.parser.positionalArguments();
    const QStringList betTexts = c.parser.values("bet");
    if (files.size() != 2 || !c.parser.isSet("race") || !c.parser.isSet("bettor") ||
        betTexts.isEmpty())
        return -1;
    bool ok = false;
    const int race = c.parser.value("race").toInt(&ok);
    if (!ok) return -1;
    const std::string bettorName = c.parser.value("bettor").toStdString();

    ConsoleWorld world(c.err, Policy::kYes);
    std::vector<BetWords> bets;
    for (const QString& text : betTexts) {
        std::optional<BetWords> bet = ParseBet(text.toStdString(), c.err);
        if (!bet) return -1;
        bets.push_back(*bet);
    }
    if (!Open(world, files[1].toStdString())) return 1;
    const std::string out = c.parser.isSet("o") ? c.parser.value("o").toStdString() : G.FilePath;
    const std::optional<std::string> paid =
        c.parser.isSet("paid") ? std::optional(c.parser.value("paid").toStdString()) : std::nullopt;

    // A failure in the middle, such as an overflow, shows the unexpected-error box and saves
    // nothing.
    try {
        BettingWindow window(world);
        if (!window.Open()) return 1;
        enum { kNone, kSold, kNoBettor, kTooManyPicks } outcome = kNone;
        std::int64_t ticket = 0;
        window.Ticket(
            kNewTicket,
            [&](TicketHeaderLogic& h) {
                // The race from the list of open races; none chosen when it is not there.
                int index = -1;
                for (int i = 0; i < h.comRaceName.list.ListCount(); ++i)
                    if (h.comRaceName.list.ItemData(i) == race) index = i;
                h.comRaceName.Select(index);
                if (index >= 0) h.comRaceName_Click();
                std::int64_t slot = 0;
                for (std::int64_t b = 1; b <= RF.BettorCount && slot == 0; ++b)
                    if (RF.Bettor(b).BettorName == bettorName) slot = b;
                if (slot == 0) {
                    outcome = kNoBettor;
                    return;
                }
                for (int i = 0; i < h.comBettor.list.ListCount(); ++i)
                    if (h.comBettor.list.ItemData(i) == slot && h.comBettor.Select(i))
                        h.comBettor_Click();
                h.cmdEdit_Click();
            },
            [&](PlaceBetsLogic& p) {
                for (const BetWords& bet : bets) {
                    const Placed placed = Place(p, bet);
                    if (placed == Placed::kTooManyPicks) outcome = kTooManyPicks;
                    if (placed != Placed::kAccepted) return;
                }
                ticket = Betting.TranTickets(Betting.CurTranTicket).TicketNbr;
                p.cmdAcceptTicket_Click();
                outcome = kSold;
            });
        if (outcome == kNoBettor) {
            c.err << "tally: no such bettor: " << bettorName << "\n";
            return 1;
        }
        if (outcome == kTooManyPicks) {
            c.err << "tally: more picks than the bet takes\n";
            return -1;
        }
        if (outcome != kSold) return 1;
        if (!window.Finish(paid ? &*paid : nullptr, out)) return 1;
        if (G.FileChanged) {
            G.CancelFlag = false;
            WriteRaceFile();
            if (G.CancelFlag) return 1;
        }
        c.out << ticket << "\n";
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        return 1;
    }
    return 0;
}

}  // namespace

Command SellCommand() {
    return {
        .name = "sell",
        .summary = "Sell a new ticket at the betting window and save the card.",
        .synopsis =
            "FILE --race N --bettor NAME --bet \"AMT TYPE PICKS [box]\"... [--paid AMT] "
            "[-o OUT]",
        .arguments = {{"FILE", "The race card."}},
        .options = {{"race", "The ticket's race, by its number on the card.", "N"},
                    {"bettor", "The bettor, by name exactly as the card has it.", "NAME"},
                    {"bet", "A bet: amount, type, picks, and box for a boxed bet.",
                     "AMT TYPE PICKS [box]"},
                    {"paid", "The amount paid at the window; the total due when left out.", "AMT"},
                    {{"o", "output"}, "Save to OUT instead of over FILE.", "OUT"}},
        .details =
            "Each --bet is typed into Place Bet and checked as Accept Bet checks it; the first "
            "bet refused ends the command and nothing is saved. AMT is read as the amount box "
            "reads it: \"1,000\" is 1. TYPE is a code 1 to 11, a bet type's name (\"Daily "
            "Double\") or a key letter of the type list: W, P, S, E, T, D, A. PICKS are bet "
            "numbers joined by commas, in the order of the pick lists; Across the Board may "
            "have none.\n\n"
            "Only races without results take bets. The transaction is logged to the recovery "
            "file when the card says so. Every question is answered OK or Yes; the file a "
            "save replaces is kept as its backup. The new ticket's number is printed.",
        .run = Sell,
    };
}

}  // namespace tt::cli
