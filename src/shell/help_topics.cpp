#include "shell/help_topics.h"

#include <algorithm>
#include <cctype>

#include "model/help_ids.h"

namespace tt {

const std::vector<HelpTopic>& HelpTopics() {
    static const std::vector<HelpTopic> kTopics = {
        {help::kOverview, "overview.html", "A race day from card to payouts", "Getting started"},
        {help::kInitialOpen, "initial_open.html", "Opening a file at start-up", "Getting started"},
        {help::kMainWindow, "main_window.html", "The main window, its menus and toolbar",
         "Getting started"},
        {0, "files.html", "Files, backups and recent files", "Getting started"},
        {0, "bet_types.html", "Bet types", "Getting started"},
        {help::kRaceCard, "race_card.html", "Race Card Setup", "The race card"},
        {help::kRaceCardGeneral, "race_card_general.html", "General Setup tab", "The race card"},
        {help::kRaceCardDefaults, "race_card_defaults.html", "Race Defaults tab", "The race card"},
        {help::kRaceCardRaces, "race_card_races.html", "Race Setup tab", "The race card"},
        {help::kRaceCardRacers, "race_card_racers.html", "Racer Setup tab", "The race card"},
        {help::kRaceCardBackup, "race_card_backup.html", "Backup/Recov tab", "The race card"},
        {help::kEditRacer, "edit_racer.html", "Edit Racer", "The race card"},
        {help::kCopyRacers, "copy_racers.html", "Copy Racers", "The race card"},
        {help::kSelectBettor, "select_bettor.html", "Select a Participant", "Bettors"},
        {help::kEditBettor, "edit_bettor.html", "Edit Bettor", "Bettors"},
        {help::kImportBettors, "import_bettors.html", "Bring in Bettors from another File",
         "Bettors"},
        {help::kTransaction, "transaction.html", "Betting Window Transaction", "Taking bets"},
        {help::kTicketHeader, "ticket_header.html", "Starting, editing and cashing tickets",
         "Taking bets"},
        {help::kPlaceBets, "place_bets.html", "Place Bet", "Taking bets"},
        {help::kBetDisplay, "bet_display.html", "Display Bet Pick's", "Taking bets"},
        {help::kCloseTransaction, "close_transaction.html", "Finish Transaction", "Taking bets"},
        {help::kDisplayOdds, "display_odds.html", "Display Odds", "Odds, results and payouts"},
        {help::kOddsBoard, "odds_board.html", "The odds board", "Odds, results and payouts"},
        {help::kEditResults, "edit_results.html", "Edit Results", "Odds, results and payouts"},
        {help::kPayoutHandling, "payout_handling.html", "Payout Handling",
         "Odds, results and payouts"},
        {help::kDisplayPayouts, "display_payouts.html", "Display Payouts",
         "Odds, results and payouts"},
        {help::kListBets, "list_bets.html", "List Bets", "Lists and reports"},
        {help::kPrint, "print.html", "Print", "Lists and reports"},
        {help::kSelectRaceAndBetType, "select_race_to_print.html", "Select Race to Print",
         "Lists and reports"},
        {help::kRestore, "restore.html", "Restore from Recovery File", "Recovery"},
        {help::kAbout, "about.html", "About Tamberlin Tally", "About"},
        {help::kResetMax, "reset_max.html", "Reset Number of Races and Max Bets per Ticket",
         "About"},
    };
    return kTopics;
}

const HelpTopic* HelpTopicFor(int contextId) {
    if (contextId == 0) return nullptr;
    for (const HelpTopic& t : HelpTopics())
        if (t.contextId == contextId) return &t;
    return nullptr;
}

const HelpTopic* HelpTopicOfFile(std::string_view file) {
    for (const HelpTopic& t : HelpTopics())
        if (file == t.file) return &t;
    return nullptr;
}

std::vector<std::string> HelpWords(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    auto isWordChar = [](unsigned char c) { return std::isalnum(c) || c >= 0x80; };
    for (std::size_t i = 0; i <= text.size(); ++i) {
        unsigned char c = i < text.size() ? static_cast<unsigned char>(text[i]) : ' ';
        bool apostropheInside = c == '\'' && !word.empty() && i + 1 < text.size() &&
                                isWordChar(static_cast<unsigned char>(text[i + 1]));
        if (isWordChar(c) || apostropheInside) {
            word += static_cast<char>(std::tolower(c));
        } else if (!word.empty()) {
            words.push_back(std::move(word));
            word.clear();
        }
    }
    return words;
}

std::vector<std::size_t> SearchHelp(std::string_view query, const std::vector<std::string>& texts) {
    std::vector<std::string> wanted = HelpWords(query);
    std::vector<std::pair<std::size_t, std::size_t>> found;  // hits, topic
    if (wanted.empty()) return {};
    for (std::size_t t = 0; t < texts.size(); ++t) {
        std::vector<std::string> words = HelpWords(texts[t]);
        std::size_t hits = 0;
        bool all = true;
        for (const std::string& w : wanted) {
            std::size_t n = static_cast<std::size_t>(
                std::count_if(words.begin(), words.end(),
                              [&](const std::string& x) { return x.starts_with(w); }));
            if (n == 0) {
                all = false;
                break;
            }
            hits += n;
        }
        if (all) found.emplace_back(hits, t);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    std::vector<std::size_t> order;
    for (const auto& f : found) order.push_back(f.second);
    return order;
}

}  // namespace tt
