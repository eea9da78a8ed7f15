#include "files/recovery_file.h"

#include "files/field_reader.h"
#include "files/safe_file.h"
#include "model/number_text.h"
#include "model/ports.h"

namespace tt {

void RecoveryFailure(const char* stage, int number, const std::string& text,
                     const std::string& source) {
    RF.RecoveryFlag = false;
    MsgBox(JoinParts({std::string("The system has detected an unexpected error") + kCrLf + stage +
                          " the Recovery File!",
                      "Use of Recovery File has been turned off!", "Use Edit/RaceCard to reset it!",
                      "Error #" + std::to_string(number) + ":  " + text + ", Source:  " + source}),
           Buttons::kOK, Icon::kExclamation);
}

std::string ReadRecoveryText() {
    return Files().ReadAll(RF.RecoveryFile, kRecoveryReadLimit);
}

bool HoldsRecoveryRecord(std::string_view data) {
    FieldReader in(data);
    while (!in.AtEnd())
        if (in.Next() == kRecoveryTag) return true;
    return false;
}

void CheckRecoveryText(std::string_view data) {
    if (!G.FilePath.empty() && Files().SameFile(RF.RecoveryFile, G.FilePath))
        throw AppError(kErrPathFileAccess);
    if (!data.empty() && !HoldsRecoveryRecord(data)) throw AppError(kErrPathFileAccess);
}

namespace {

// Whether the log may add to or rewrite the recovery file: it is missing, or its text passes.
void CheckRecoveryFile() {
    if (Files().Kind(RF.RecoveryFile) == FileKind::kMissing) return;
    CheckRecoveryText(ReadRecoveryText());
}

}  // namespace

void TestRecoveryFile() {
    if (!RF.RecoveryFlag) return;
    CloseRecoveryChannel();
    try {
        CheckRecoveryFile();
        Files().Append(RF.RecoveryFile, {});
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        RecoveryFailure("opening", err.Number(), err.Text(), err.Source());
    }
}

void LogTransaction(const std::vector<RecoveryRow>& rows) {
    CloseRecoveryChannel();
    try {
        std::string out;
        for (const RecoveryRow& row : rows) AppendRecoveryLine(out, row, RF.FileId);
        CheckRecoveryFile();
        Files().Append(RF.RecoveryFile, out);
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        RecoveryFailure("opening", err.Number(), err.Text(), err.Source());
    }
}

void AppendRecoveryLine(std::string& out, const RecoveryRow& row, std::int16_t fileId) {
    auto text = [&](const std::string& s) {
        out += '"';
        out += s;
        out += "\",";
    };
    auto num = [&](std::int64_t v) {
        AppendFileNumber(v, out);
        out += ',';
    };
    auto money = [&](Currency c) {
        AppendFileNumber(out, c);
        out += ',';
    };
    auto flag = [&](Flag f) { out += f ? "#TRUE#," : "#FALSE#,"; };
    text(kRecoveryTag);
    text(kRecoveryVersion);
    out += '#';
    out += row.When.Text();
    out += "#,";
    num(fileId);
    text(row.Action);
    num(row.TicketNbr);
    num(row.Race);
    num(row.Bettor);
    money(row.Collected);
    money(row.Distributed);
    money(row.OldCost);
    money(row.Winnings);
    money(row.BetAmt);
    num(row.BetType);
    flag(row.Boxed);
    money(row.BetCost);
    money(row.PriorWinnings);
    num(row.WinningsWhole);
    num(row.OrigBetIdx);
    for (int k = 1; k <= 6; ++k) num(row.Pick(k));
    out += "\r\n";
}

void ReadRecoveryRest(FieldReader& in, RecoveryRow& row) {
    in.ReadText(row.Action);
    {
        FieldCursor f(in);
        row.TicketNbr = f.Int32Field();
        row.Race = f.Int16Field();
        row.Bettor = f.Int16Field();
        row.Collected = f.Money();
        row.Distributed = f.Money();
        row.OldCost = f.Money();
        row.Winnings = f.Money();
        row.BetAmt = f.Money();
        row.BetType = f.Int16Field();
        row.Boxed = f.TrueFalse();
        row.BetCost = f.Money();
        row.PriorWinnings = f.Money();
        row.WinningsWhole = f.Int16Field();
        row.OrigBetIdx = f.Int32Field();
        for (int k = 1; k <= 6; ++k) row.Pick(k) = f.Int16Field();
    }
    if (!in.AtEnd()) in.Next();  // the empty field after the trailing comma
}

void ClearOldRecovery(std::int16_t days) {
    CloseRecoveryChannel();
    try {
        const std::string data = ReadRecoveryText();
        CheckRecoveryText(data);
        FieldReader in(data);
        std::vector<RecoveryRow> rows;
        const double now = Clock().Now().Serial();
        while (!in.AtEnd()) {
            if (in.Next() != kRecoveryTag) continue;
            if (in.ReadText() != kRecoveryVersion) {
                Beep();
                MsgBox(JoinParts({"Recovery File is not for this version of the software!",
                                  "Recovery will be turned off!"}),
                       Buttons::kOK, Icon::kExclamation);
                RF.RecoveryFlag = false;
                return;
            }
            RecoveryRow row;
            row.When = in.ReadDate();
            row.FileId = in.ReadInt16();
            if (now - row.When.Serial() > days && row.FileId == RF.FileId) continue;
            ReadRecoveryRest(in, row);
            rows.push_back(std::move(row));
        }
        std::string out;
        for (const RecoveryRow& row : rows) AppendRecoveryLine(out, row, RF.FileId);
        ReplaceFileContents(RF.RecoveryFile, out);
    } catch (const std::exception& e) {
        AppError err = ToAppError(e);
        RecoveryFailure("processing", err.Number(), err.Text(), err.Source());
    }
}

}  // namespace tt
