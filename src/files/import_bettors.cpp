#include "files/import_bettors.h"

#include "files/field_reader.h"
#include "files/race_file_io.h"
#include "model/ports.h"

namespace tt {

Table1<BettorRec> ImportBettors;
Int16 ImportCount;
std::string ImportPath;

namespace {

constexpr std::string_view kTagHeader = "%Header`";
constexpr std::string_view kTagBettor = "%Bettor`";

// Only a version written exactly so is taken without asking; the writer's own "2.01" asks.
constexpr std::string_view kImportVersion = "2.0";

bool AskVersionQuestion() {
    return MsgBox(JoinParts({"Software does not support the version specified in the file!",
                             "You could experience problems loading the file!",
                             "If it is a file from an earlier version of Ridgeway Ladder, ",
                             "try opening it as the main pool file then saving it.",
                             "Do you wish to continue?"}),
                  Buttons::kYesNo, Icon::kExclamation, {}, 1) == kYes;
}

}  // namespace

void ClearImportList() {
    ImportCount = 0;
    ImportBettors.ReDim(1);
}

void ReadImportFile() {
    ClearImportList();
    if (ImportPath.empty()) {
        Beep();
        MsgBox("No file selected");
        return;
    }
    Shell().SetBusy(true);
    std::string data;
    try {
        data = Files().ReadAll(ImportPath);
    } catch (const std::exception& e) {
        Shell().SetBusy(false);
        MsgBox(JoinParts({"Error in initial reading of file", ToAppError(e).Text()}));
        return;
    }

    FieldReader in(data);
    std::string field;  // the tag of the record being read
    try {
        bool found = false;
        while (!in.AtEnd())
            if (in.Next() == kTagHeader) {
                found = true;
                break;
            }
        // A file without a header has no product, and so is no race file.
        std::string product, version;
        if (found) {
            field = kTagHeader;
            product = in.ReadText();
            version = in.ReadText();
            in.ReadDate();
        }
        if (product != kProduct) {
            Shell().SetBusy(false);
            Beep();
            MsgBox(JoinParts({"File is not a Tamberlin Tally file.", "Nothing will be imported."}));
            return;
        }
        if (version != kImportVersion) {
            Shell().SetBusy(false);
            Beep();
            if (!AskVersionQuestion()) return;
            Shell().SetBusy(true);
        }
        while (!in.AtEnd()) {
            if (in.Next() != kTagBettor) continue;
            field = kTagBettor;
            ImportCount += 1;
            ImportBettors.ReDimPreserve(ImportCount + 1);
            BettorRec& b = ImportBettors(ImportCount);
            in.ReadText(b.BettorName);
            in.ReadText(b.BettorInfo);
            in.ReadText(b.BettorEmail);
            in.ReadText(b.BettorPhone);
        }
    } catch (const std::exception& e) {
        ClearImportList();
        Shell().SetBusy(false);
        MsgBox(JoinParts({"Error in processing the " + field + " record.", ToAppError(e).Text()}));
        return;
    }
    Shell().SetBusy(false);
    for (std::int64_t i = 1; i <= ImportCount; ++i) ImportBettors(i).ImportFlag = true;
    G.CancelFlag = false;
    try {
        Shell().ShowForm("frmImportBettors", true);
    } catch (...) {
        ClearImportList();
        throw;
    }
    ClearImportList();
}

}  // namespace tt
