// Tickets on paper: the block of a ticket at its columns, the printer set-up, the document held
// across transactions up to MaxTransInPrinter, a block that does not fit ending the document,
// the copies question, and a ticket painted into a real PDF.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QPrintDialog>
#include <QTemporaryDir>
#include <QTimer>

#include "betting/finish_transaction.h"
#include "betting/ticket_printing.h"
#include "betting_card.h"
#include "shell/forms/qt_printer.h"

namespace tt::test {
namespace {

using Lines = std::vector<std::string>;

class TicketPrinting : public BettingCard {
  protected:
    void SetUp() override {
        BettingCard::SetUp();
        // A coupled entry with a long name: 1A runs as number 1.
        RF.MaxRacers = 7;
        RF.Racer.ReDimPreserve(8);
        RacerRec& coupled = RF.Racer(1, 7);
        coupled.BetNbr = 1;
        coupled.RacerName = "Dandelion Delight of Tamberlin";
        coupled.ProgramNbr = "1A";
        coupled.PostPosition = "7";
        RF.TicketCount = 6;
        RF.PrintBets = true;
    }
    // Ann's ticket #7 of four bets in race 1: a Win, a boxed Exacta on the coupled entry, an
    // Across the Board bet without picks and a Daily Double into race 2.
    std::int32_t AnnsTicket() {
        return NewTicket(1, 1, {{2, 1, {3}}, {1, 4, {1, 2, 4}, true}, {2, 11, {}}, {2, 6, {5, 2}}});
    }
    Lines Printed() const { return world.printer.lines; }
    void Print() {
        TicketPage page;
        PrintTransaction(page, AskResetCopies);
    }
};

const Lines kAnnsBlock = {
    "",
    "   **** Tamberlin Tally - tamberlin-tally.example.org **** 4172 - Tamberlin Downs Spri ****",
    "   Ticket#: 7       Race:  1 - Maiden Sprint      Bettor: Ann Archer",
    "   Amount  Type         Pick  Bet#   Name             Pgm#   PP     Bet Total",
    "   $2.00   Win          1     3      Miss Puddleby     3     3      $2.00",
    "   $1.00   Exacta   Box 1     1      Dandelion Dancer  1     1      $6.00",
    "                              1      Dandelion Deligh  1A    7",
    "                        2     2      Copper Kettle     2     2",
    "                        3     4      Long Shot Larry   4     4",
    "   $2.00   D Double     1     5      April Fool        5     5      $2.00",
    "                        2     2      Rusty Spur        2     2",
};

TEST_F(TicketPrinting, TheBlockOfATicketAtItsColumns) {
    AnnsTicket();
    const std::vector<TicketLine> lines = BuildTicketLines(1);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[1].BetSeq, 2);
    EXPECT_EQ(lines[5].BetSeq, 4);  // the Across the Board bet counts but gives no line
    EXPECT_EQ(lines[5].TypeText, "D Double");
    EXPECT_EQ(TicketBlockText(1, lines), kAnnsBlock);
    // The values of "Pgm#" stand one column right of their head.
    EXPECT_EQ(kAnnsBlock[3].substr(54, 4), "Pgm#");
    EXPECT_EQ(kAnnsBlock[4].substr(54, 3), " 3 ");
}

TEST_F(TicketPrinting, ATicketOfBetsWithoutLinesHasNoColumnHeads) {
    NewTicket(2, 3, {{2, 11, {}}});
    RF.Bettor(3).BettorName = "Cornelius Coldwater-Smythe";
    EXPECT_EQ(TicketBlockText(1, BuildTicketLines(1)),
              (Lines{"",
                     "   **** Tamberlin Tally - tamberlin-tally.example.org **** 4172 - Tamberlin "
                     "Downs Spri ****",
                     "   Ticket#: 7       Race:  2 - Meadowlark Hand    Bettor: Cornelius "
                     "Coldwater-"}));
}

TEST_F(TicketPrinting, SetUpTakesCourierBoldAtTheTicketSizeAndCountsTheLines) {
    RF.TicketFontSize = 12;
    SetUpTicketPrinter();
    EXPECT_EQ(world.printer.font, "Courier");
    EXPECT_EQ(world.printer.fontSize, 12);
    EXPECT_TRUE(world.printer.bold);
    EXPECT_EQ(Betting.LinesPerPage, 65);  // (15,840 - 100) / 240

    RF.TicketFontSize = 80;
    SetUpTicketPrinter();
    EXPECT_EQ(world.printer.fontSize, 10);
    EXPECT_EQ(RF.TicketFontSize, 10);
    RF.TicketFontSize = 1;
    SetUpTicketPrinter();
    EXPECT_EQ(RF.TicketFontSize, 10);
}

TEST_F(TicketPrinting, OnlyNewAndEditedTicketsPrint) {
    SetUpTicketPrinter();
    RF.MaxTransInPrinter = 5;
    for (const char* action :
         {kNewTicket, kNewAgain, kEditTicket, kEditAgain, kCashTicket, kCancelled}) {
        NewTicket(1, 1, {{2, 1, {3}}});
        Tran(Betting.TranTicketCount).Action = action;
    }
    Print();
    Lines numbers;
    for (const std::string& l : Printed())
        if (l.find("Ticket#") != std::string::npos) numbers.push_back(l.substr(3, 10));
    EXPECT_EQ(numbers, (Lines{"Ticket#: 7", "Ticket#: 8", "Ticket#: 9"}));
    EXPECT_EQ(Betting.TransInPrinter, 1);
}

TEST_F(TicketPrinting, MaxTransInPrinterOneOrZeroEndsTheDocumentEachTime) {
    SetUpTicketPrinter();
    AnnsTicket();
    for (int max : {1, 0}) {
        world.printer.lines.clear();
        RF.MaxTransInPrinter = max;
        Print();
        Lines expected = kAnnsBlock;
        expected.push_back("<end doc>");
        EXPECT_EQ(Printed(), expected) << max;
        EXPECT_EQ(Betting.TransInPrinter, 0);
    }
}

TEST_F(TicketPrinting, TransactionsWaitInTheDocumentUpToTheMaximum) {
    SetUpTicketPrinter();
    RF.MaxTransInPrinter = 3;
    AnnsTicket();
    Print();
    Print();
    EXPECT_EQ(Betting.TransInPrinter, 2);
    EXPECT_EQ(Printed().size(), 2 * kAnnsBlock.size());
    Print();
    EXPECT_EQ(Betting.TransInPrinter, 0);
    EXPECT_EQ(Printed().back(), "<end doc>");

    // A maximum lowered on the race card meanwhile: the waiting document goes first.
    world.printer.lines.clear();
    Betting.TransInPrinter = 4;
    Print();
    EXPECT_EQ(Printed().front(), "<end doc>");
    EXPECT_EQ(Betting.TransInPrinter, 1);

    ReleaseTickets();
    EXPECT_EQ(Printed().back(), "<end doc>");
    EXPECT_EQ(Betting.TransInPrinter, 0);
}

TEST_F(TicketPrinting, ABlockThatDoesNotFitEndsTheWholeDocument) {
    world.printer.pageHeight = 100 + 12 * 240;  // 12 lines a page
    SetUpTicketPrinter();
    ASSERT_EQ(Betting.LinesPerPage, 12);
    RF.MaxTransInPrinter = 3;
    NewTicket(1, 1, {{2, 1, {3}}});  // 5 lines
    AnnsTicket();                    // 11 lines
    TicketPage page;
    PrintTransaction(page, AskResetCopies);
    EXPECT_EQ(page.LinesUsed, 11);
    ASSERT_EQ(Printed().size(), 5u + 1 + 11);
    EXPECT_EQ(Printed()[5], "<end doc>");
    // The overflow counted this transaction as the first of the new document.
    EXPECT_EQ(Betting.TransInPrinter, 1);

    // Without a set-up (tickets printed before Finish with PrintBets off) no line fits: each
    // ticket ends the document before it.
    world.printer.lines.clear();
    Betting.LinesPerPage = 0;
    TicketPage fresh;
    PrintTransaction(fresh, AskResetCopies);
    EXPECT_EQ(Printed()[0], "<end doc>");
    EXPECT_EQ(Printed()[6], "<end doc>");
}

TEST_F(TicketPrinting, TheCopiesQuestion) {
    SetUpTicketPrinter();
    AnnsTicket();
    world.printer.copies = 3;
    world.messages.Answer(kNo);
    Print();
    ASSERT_EQ(world.messages.shown.size(), 1u);
    EXPECT_EQ(world.messages.shown[0].text,
              "Printer is set to multiple copies.\r\nDo you want to reset to 1?");
    EXPECT_EQ(world.messages.shown[0].buttons, Buttons::kYesNo);
    EXPECT_EQ(world.messages.shown[0].icon, Icon::kQuestion);
    EXPECT_EQ(world.printer.copies, 3);
    EXPECT_TRUE(Betting.KeepPrinterCopies);

    Print();  // kept: not asked again
    EXPECT_EQ(world.messages.shown.size(), 1u);

    world.printer.copies = 1;  // set back by hand: the next multiple count is asked about again
    Print();
    EXPECT_FALSE(Betting.KeepPrinterCopies);
    world.printer.copies = 2;
    world.messages.Answer(kYes);
    Print();
    EXPECT_EQ(world.messages.shown.size(), 2u);
    EXPECT_EQ(world.printer.copies, 1);

    // No policy keeps the copies, as No does; an empty transaction asks nothing.
    world.printer.copies = 2;
    TicketPage page;
    PrintTransaction(page, nullptr);
    EXPECT_EQ(world.printer.copies, 2);
    EXPECT_TRUE(Betting.KeepPrinterCopies);
    Betting.KeepPrinterCopies = false;
    Betting.TranTicketCount = 0;
    Print();
    EXPECT_EQ(world.messages.shown.size(), 2u);
}

TEST_F(TicketPrinting, AFinishPrintsAfterWritingWithTheWindowsPage) {
    RF.MaxTransInPrinter = 2;
    AnnsTicket();
    FinishChoices choices;
    TicketPage page;
    choices.page = &page;
    choices.countForSave = nullptr;
    ASSERT_TRUE(FinishTransaction("16", TransactionTotal(), choices).Finished());
    EXPECT_EQ(Printed(), kAnnsBlock);
    EXPECT_EQ(page.LinesUsed, 11);
    EXPECT_EQ(Betting.TransInPrinter, 1);
    EXPECT_EQ(world.printer.font, "Courier");

    // Not printing leaves the printer alone.
    world.printer.lines.clear();
    NewTicket(1, 2, {{2, 1, {3}}});
    choices.print = false;
    ASSERT_TRUE(FinishTransaction("2", TransactionTotal(), choices).Finished());
    EXPECT_TRUE(Printed().empty());
    EXPECT_EQ(Betting.TransInPrinter, 1);
}

TEST_F(TicketPrinting, ATicketPaintedIntoAPdf) {
    QTemporaryDir dir;
    ASSERT_TRUE(dir.isValid());
    gui::QtPrinter printer;
    const QString path = dir.filePath("tickets.pdf");
    printer.PrintToPdf(path);
    Ports ports = CurrentPorts();
    ports.printer = &printer;
    PortsScope scope(ports);

    SetUpTicketPrinter();
    EXPECT_GT(Betting.LinesPerPage, 40);
    AnnsTicket();
    RF.MaxTransInPrinter = 1;
    Print();
    EXPECT_FALSE(printer.DocumentOpen());
    EXPECT_EQ(printer.PdfFile(), path);
    QFile pdf(path);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5).startsWith("%PDF-"));
    EXPECT_GT(pdf.size(), 1000);

    // The next document goes beside it rather than over it.
    Print();
    EXPECT_EQ(printer.PdfFile(), dir.filePath("tickets 2.pdf"));
    EXPECT_TRUE(QFile::exists(dir.filePath("tickets 2.pdf")));
}

TEST_F(TicketPrinting, AChoiceInThePrintSetUpWaitsForTheOpenDocument) {
    QTemporaryDir dir;
    gui::QtPrinter printer;
    printer.PrintToPdf(dir.filePath("first.pdf"));
    Ports ports = CurrentPorts();
    ports.printer = &printer;
    PortsScope scope(ports);
    SetUpTicketPrinter();
    RF.MaxTransInPrinter = 5;
    AnnsTicket();
    Print();
    ASSERT_TRUE(printer.DocumentOpen());

    // The set-up, answered with another PDF file while tickets wait.
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), "Print Setup");
        auto* file = dialog->findChild<QLineEdit*>("filename");
        ASSERT_NE(file, nullptr);
        EXPECT_EQ(file->text(), dir.filePath("first.pdf"));
        file->setText(dir.filePath("second.pdf"));
        dialog->accept();
    });
    EXPECT_TRUE(printer.SetupDialog());
    EXPECT_EQ(printer.PdfFile(), dir.filePath("first.pdf"));
    Print();
    ReleaseTickets();
    EXPECT_TRUE(QFile::exists(dir.filePath("first.pdf")));
    Print();
    ReleaseTickets();
    EXPECT_EQ(printer.PdfFile(), dir.filePath("second.pdf"));
    EXPECT_TRUE(QFile::exists(dir.filePath("second.pdf")));
    Print();
    ReleaseTickets();
    EXPECT_EQ(printer.PdfFile(), dir.filePath("second 2.pdf"));

    // Cancelled, it changes nothing.
    QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
    EXPECT_FALSE(printer.SetupDialog());
    Print();
    ReleaseTickets();
    EXPECT_EQ(printer.PdfFile(), dir.filePath("second 3.pdf"));
}

}  // namespace
}  // namespace tt::test
