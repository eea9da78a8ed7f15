#include "files/field_reader.h"
#include "files/file_commands.h"
#include "files/race_file_io.h"
#include "files/recovery_file.h"
#include "model/common.h"
#include "model/ports.h"
#include "model/race_file.h"

namespace tt {

namespace {

constexpr std::string_view kTagHeader = "%Header`";
constexpr std::string_view kTagParms = "%Parms `";
constexpr std::string_view kTagRace = "%Race  `";
constexpr std::string_view kTagRacer = "%Racer `";
constexpr std::string_view kTagBettor = "%Bettor`";
constexpr std::string_view kTagBet = "%Bet   `";
constexpr std::string_view kTagPayout = "%Payout`";

enum class Tag { kNone, kHeader, kParms, kRace, kRacer, kBettor, kBet, kPayout };

Tag TagOf(std::string_view f) {
    if (f.size() != 8 || f[0] != '%' || f[7] != '`') return Tag::kNone;
    if (f == kTagBet) return Tag::kBet;
    if (f == kTagRacer) return Tag::kRacer;
    if (f == kTagBettor) return Tag::kBettor;
    if (f == kTagRace) return Tag::kRace;
    if (f == kTagPayout) return Tag::kPayout;
    if (f == kTagParms) return Tag::kParms;
    if (f == kTagHeader) return Tag::kHeader;
    return Tag::kNone;
}

void OutOfOrder(const char* what) {
    Beep(2);
    MsgBox(JoinParts({what, "Some data will be lost when file is loaded!"}), Buttons::kOK,
           Icon::kExclamation);
}

// A race's settings; version 2.0 adds the quick bets after an empty field.
void ReadRace(FieldReader& in, bool quickBets) {
    G.CurrentRace = in.ReadInt16();
    G.CurrentRacer = 0;
    if (G.CurrentRace < 0 || G.CurrentRace > kMaxRace) return;
    RaceRec& race = RF.Race(G.CurrentRace);
    in.ReadText(race.RaceName);
    race.MinBet = in.ReadCurrency();
    race.MinPayout = in.ReadCurrency();
    race.BetIncr = in.ReadCurrency();
    race.RoundTo = in.ReadInt16();
    race.HoldbackAmt = in.ReadCurrency();
    race.HoldbackPct = in.ReadSingle();
    for (int t = 1; t <= kBetTypes; ++t) {
        race.BetType(t) = in.ReadFlag();
        race.CorrectPaid(t) = in.ReadInt16();
    }
    for (int k = 0; k <= 5; ++k) race.Result(k) = in.ReadInt16();
    if (!quickBets) return;
    in.Next();  // the empty field after the trailing comma
    for (int q = 1; q <= 5; ++q) race.QuickBet(q) = in.ReadCurrency();
}

void ReadRacer(FieldReader& in) {
    if (G.CurrentRace < 1 || G.CurrentRace > kMaxRace) {
        OutOfOrder("Racer info found out of order in file!");
        return;
    }
    ++G.CurrentRacer;
    if (G.CurrentRacer > RF.MaxRacers) {
        RF.Racer.ReDimPreserve(G.CurrentRacer + 1);
        RF.MaxRacers = G.CurrentRacer;
    }
    RacerRec& r = RF.Racer(G.CurrentRace, G.CurrentRacer);
    r.BetNbr = in.ReadInt16();
    in.ReadText(r.PostPosition);
    in.ReadText(r.ProgramNbr);
    in.ReadText(r.RacerName);
    r.Odds = in.ReadDouble();
    r.Scratched = in.ReadFlag();
}

void ReadBettor(FieldReader& in) {
    RF.BettorCount = RF.BettorCount + 1;
    RF.Bettor.ReDimPreserve(RF.BettorCount + 1);
    G.CurrentBettor = RF.BettorCount;
    BettorRec& b = RF.Bettor(G.CurrentBettor);
    in.ReadText(b.BettorName);
    in.ReadText(b.BettorInfo);
    in.ReadText(b.BettorEmail);
    in.ReadText(b.BettorPhone);
}

void ReadPayout(FieldReader& in) {
    Int16 race = in.ReadInt16();
    for (int t = 1; t <= kBetTypes; ++t)
        for (int p = 1; p <= 6; ++p) {
            PayoutRec& pay = RF.Payout(race, t, p);
            pay.PayRatio = in.ReadDouble();
            pay.WinningAmt = in.ReadCurrency();
            pay.PoolAmt = in.ReadCurrency();
        }
}

// Takes the next slot of the bet's race, growing the table when the race needs more.
BetRec& NextBetSlot(FieldReader& in) {
    G.CurrentRace = in.ReadInt16();
    RaceRec& race = RF.Race(G.CurrentRace);
    race.BetCount = race.BetCount + 1;
    G.CurrentBet = race.BetCount;
    if (G.CurrentBet > RF.MaxBets) {
        RF.Bet.ReDimPreserve(G.CurrentBet + 1);
        RF.MaxBets = G.CurrentBet;
    }
    return RF.Bet(G.CurrentRace, G.CurrentBet);
}

void ReadBet20(FieldReader& in) {
    if (G.CurrentBettor <= 0) {
        OutOfOrder("Bet info found out of order in file!");
        return;
    }
    BetRec& b = NextBetSlot(in);
    FieldCursor f(in);
    b.BetAmt = f.Money();
    b.BetType = f.Int16Field();
    b.Boxed = f.TrueFalse();
    b.BetCost = f.Money();
    b.BetWinnings = f.Money();
    b.WinPart = f.Money();
    b.PlacePart = f.Money();
    b.ShowPart = f.Money();
    b.CorrectPicks = f.Int16Field();
    b.WinningCombos = f.Int16Field();
    for (int k = 1; k <= 6; ++k) b.Pick(k) = f.Int16Field();
    b.TicketIdx = f.Int32Field();
    G.CurrentTicket = b.TicketIdx;
    // A ticket lies anywhere in its table: ask for it before the fields that go into it.
    TicketRec& t = RF.Ticket(G.CurrentTicket);
    __builtin_prefetch(&t, 1);
    t.TicketNbr = f.Int32Field();
    t.TicketRace = f.Int16Field();
    t.TicketCost = f.Money();
    t.Collected = f.Money();
    t.Distributed = f.Money();
    t.Winnings = f.Money();
    if (t.FirstBet == 0 || t.FirstBet > G.CurrentBet) t.FirstBet = G.CurrentBet;
    if (t.LastBet == 0 || t.LastBet < G.CurrentBet) t.LastBet = G.CurrentBet;
    t.TicketBettor = G.CurrentBettor;
}

void ReadParms20(FieldReader& in) {
    RF.FileId = in.ReadInt16();
    in.ReadText(RF.FileName);
    in.ReadText(RF.RaceType);
    RF.DefaultRace = in.ReadInt16();
    RF.SaveAfter = in.ReadInt16();
    RF.PrintBets = in.ReadFlag();
    RF.MaxTransInPrinter = in.ReadInt16();
    RF.UseBetNbr = in.ReadFlag();
    RF.UseProgramNbr = in.ReadFlag();
    RF.UsePostPosition = in.ReadFlag();
    in.ReadText(RF.RacerSort);
    RF.MaxRaces = in.ReadInt16();
    RF.TicketCount = in.ReadInt32();
    RF.DefaultToDummy = in.ReadFlag();
    in.ReadText(RF.RecoveryFile);
    RF.RecoveryFlag = in.ReadFlag();
    RF.ClearRecovery = in.ReadFlag();
    RF.ClearDays = in.ReadInt16();
    RF.ReportFontSize = in.ReadInt16();
    RF.TicketFontSize = in.ReadInt16();
    RF.CollectZero = in.ReadFlag();
    RF.Ticket.ReDimPreserve(RF.TicketCount + 1);
    DrawFileId();
}

// The settings that version 1.0 did not have, set again before every field.
void Defaults10() {
    RF.TicketCount = 0;
    RF.ClearRecovery = false;
    RF.ClearDays = 0;
    RF.DefaultToDummy = false;
    RF.CollectZero = false;
    RF.PrintBets = false;
    RF.MaxTransInPrinter = 3;
    RF.RacerSort = "Betting Number";
    RF.RecoveryFile = " ";
    RF.RecoveryFlag = false;
    RF.UseBetNbr = true;
    RF.UseProgramNbr = true;
    RF.UsePostPosition = true;
}

void ReadParms10(FieldReader& in) {
    RF.FileId = in.ReadInt16();
    in.ReadText(RF.FileName);
    in.ReadText(RF.RaceType);
    RF.DefaultRace = in.ReadInt16();
    RF.SaveAfter = in.ReadInt16();
    RF.MaxTransInPrinter = 1;
    RF.MaxRaces = 20;
    RF.PrintBets = false;
    RF.RacerSort = "Betting Number";
    RF.UseBetNbr = true;
    RF.UseProgramNbr = true;
    RF.UsePostPosition = true;
    RF.DefaultToDummy = false;
    RF.CollectZero = false;
    RF.ReportFontSize = 8;
    RF.TicketFontSize = 10;
    DrawFileId();
}

void ReadBet10(FieldReader& in) {
    if (G.CurrentBettor <= 0) {
        OutOfOrder("Bet info found out of order in file!");
        return;
    }
    BetRec& b = NextBetSlot(in);
    b.BetAmt = in.ReadCurrency();
    b.BetType = in.ReadInt16();
    b.Boxed = in.ReadFlag();
    b.BetCost = in.ReadCurrency();
    Flag collected = in.ReadFlag();
    b.BetWinnings = in.ReadCurrency();
    Flag paid = in.ReadFlag();
    for (int k = 1; k <= 6; ++k) b.Pick(k) = in.ReadInt16();

    G.CurrentTicket = G.CurrentTicket + 1;
    RF.Ticket.ReDimPreserve(G.CurrentTicket + 1);
    TicketRec& t = RF.Ticket(G.CurrentTicket);
    if (collected) t.Collected = b.BetCost;
    if (paid) t.Distributed = b.BetWinnings;
    b.TicketIdx = G.CurrentTicket;
    t.TicketNbr = G.CurrentTicket;
    RF.TicketCount = G.CurrentTicket;
    t.TicketCost = b.BetCost;
    t.Winnings = b.BetWinnings;
    t.TicketBettor = G.CurrentBettor;
    t.TicketRace = G.CurrentRace;
    t.FirstBet = G.CurrentBet;
    t.LastBet = G.CurrentBet;
}

// The records after the header, in the order they stand in the file. Version 1.0 has its own
// parameters and bets and no quick bets.
template <bool kVersion10>
void ReadRecords(FieldReader& in, ReadProgress& progress) {
    // Version 1.0 sets its defaults again at the top of every pass, after the test for the end
    // of the file: so a TicketCount that the last bet set stands only when nothing follows it.
    while (!in.AtEnd()) {
        if constexpr (kVersion10) Defaults10();
        std::string_view f = in.Next();
        Tag tag = TagOf(f);
        if (tag == Tag::kNone) continue;
        progress.field.assign(f);
        ++progress.count;
        switch (tag) {
            case Tag::kParms:
                if constexpr (kVersion10)
                    ReadParms10(in);
                else
                    ReadParms20(in);
                break;
            case Tag::kRace:
                ReadRace(in, !kVersion10);
                break;
            case Tag::kRacer:
                ReadRacer(in);
                break;
            case Tag::kBettor:
                ReadBettor(in);
                break;
            case Tag::kBet:
                if constexpr (kVersion10)
                    ReadBet10(in);
                else
                    ReadBet20(in);
                break;
            case Tag::kPayout:
                ReadPayout(in);
                break;
            case Tag::kHeader:
            case Tag::kNone:
                break;
        }
        // A record takes a few pages at most; a look now and then is enough.
        if (progress.count % 1024 == 0 && progress.memoryLimit != 0 &&
            ResidentBytes() > progress.memoryLimit)
            Raise(kErrOutOfMemory);
    }
}

}  // namespace

void ReadRaceFile20(FieldReader& in, ReadProgress& progress) {
    ReadRecords<false>(in, progress);
}

void ReadRaceFile10(FieldReader& in, ReadProgress& progress) {
    ReadRecords<true>(in, progress);
}

namespace {

void EndRead() {
    Shell().SetBusy(false);
}

// The number of a cancelled dialog is never reported: its handler only restores the pointer.
bool CancelledDialog(const AppError& err) {
    return err.Number() == kErrCancel;
}

// A file that could not be read: the lead and the error after a beep, and the file forgotten,
// unless the user only cancelled a dialog. The busy pointer goes either way.
void ReadFailed(const std::exception& e, const std::string& lead) {
    AppError err = ToAppError(e);
    if (!CancelledDialog(err)) {
        Beep();
        MsgBox(JoinParts({lead, err.Text()}));
        G.FilePath.clear();
    }
    EndRead();
}

}  // namespace

void OpenRaceFile() {
    ClearRaceFile();
    DisableFileCommands();
    if (G.FilePath.empty()) {
        Beep();
        MsgBox("No file selected");
        return;
    }
    Shell().SetBusy(true);

    const std::size_t resident = ResidentBytes();
    std::string data;
    try {
        data = Files().ReadAll(G.FilePath);
    } catch (const std::exception& e) {
        ReadFailed(e, "Unable to read file");
        return;
    }

    FieldReader in(data);
    std::string version;
    std::string lastField;
    try {
        bool found = false;
        while (!in.AtEnd()) {
            lastField.assign(in.Next());
            if (lastField == kTagHeader) {
                found = true;
                break;
            }
        }
        if (found) {
            std::string product = in.ReadText();
            version = in.ReadText();
            G.FileSaved = in.ReadDate();
            if (product != kProduct) {
                Beep();
                MsgBox(JoinParts({"Not a Tamberlin Tally file!",
                                  "File cannot be used with this program!"}),
                       Buttons::kOK, Icon::kExclamation);
                G.FilePath.clear();
                EndRead();
                return;
            }
            if (version == "1.0") {
                Beep();
                if (MsgBox(JoinParts(
                               {"Tamberlin Tally file is from a previous version of the software!",
                                "The file will be translated to version 2.0 format."}),
                           Buttons::kOKCancel) == kCancel) {
                    EndRead();
                    return;
                }
            } else if (version.compare(0, 2, "2.") != 0) {
                Beep();
                if (MsgBox(
                        JoinParts({"Tamberlin Tally file is from a later version of the software!",
                                   "You could experience problems loading the file!  Continue?"}),
                        Buttons::kOKCancel) == kCancel) {
                    EndRead();
                    return;
                }
            }
        }
    } catch (const std::exception& e) {
        ReadFailed(e, "Error in processing the " + lastField + " record.");
        return;
    }

    ReadProgress progress;
    if (resident != 0) progress.memoryLimit = resident + 4 * data.size() + (std::size_t{48} << 20);
    if (version == "1.0") {
        try {
            ReadRaceFile10(in, progress);
        } catch (const std::exception& e) {
            ReadFailed(e, "Error in processing the " + progress.field + " record.");
        }
    } else {
        try {
            ReadRaceFile20(in, progress);
        } catch (const std::exception& e) {
            AppError err = ToAppError(e);
            if (!CancelledDialog(err)) {
                Beep();
                MsgBox(JoinParts(
                    {"Error in processing the " + progress.field +
                         " record.  Count = " + Str(progress.count),
                     err.Text(),
                     "File cannot be opened.  See the Help system for Tech Support information."}));
                G.CancelFlag = true;
            }
            EndRead();
        }
    }

    try {
        G.LastFile = G.FilePath;
        TestRecoveryFile();
        DrawFileId();
        AddMRU(G.FilePath);
        if (G.CancelFlag) {
            EndRead();
            return;
        }
        G.FileChanged = false;
        EnableFileCommands();
        UpdateTitle();
        SetCurrentRaceToDefault();
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        if (!CancelledDialog(err)) {
            MsgBox(JoinParts({"Unexpected error processing file!", "File has been closed!",
                              "Error: " + std::to_string(err.Number()) + " - " + err.Text()}),
                   Buttons::kOK, Icon::kExclamation);
            G.FilePath.clear();
        }
    }
    EndRead();
}

}  // namespace tt
