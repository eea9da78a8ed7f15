#pragma once
// "List Bets": the bets of the card under a race, a bettor and a bet type, all of them or the
// winners only, ticket by ticket, with the totals of what is listed and the net still due. It
// changes no bet; the report of listed bets prints its grid as it stands.

#include <cstdint>
#include <string>

#include "model/checked_int.h"
#include "model/form_state.h"
#include "model/grid_data.h"
#include "model/list_data.h"

namespace tt {

struct BetRec;

// Winners only, kept while the program runs; View, List Bets starts again at all bets.
extern bool WinnersOnly;

class ListBetsLogic : public FormState {
  public:
    // The columns of flxBets.
    enum Col : int {
        kColRace = 0,       // race index, hidden
        kColBet = 1,        // bet slot, hidden
        kColTicket = 2,     // "Ticket"
        kColRaceName = 3,   // "Race"
        kColBettor = 4,     // "Bettor"
        kColCollected = 5,  // "Coll'd"
        kColDistributed = 6,
        kColTotBet = 7,
        kColWon = 8,
        kColBetAmt = 9,
        kColBetType = 10,
        kColBox = 11,
        kColPicks = 12,
        kColKey = 13,  // sort key, hidden
        kCols = 14,
    };
    // The smallest size the window keeps, twips.
    static constexpr int kMinHeight = 3500;
    static constexpr int kMinWidth = 7700;
    // The height of the thin row between two tickets, twips.
    static constexpr int kSeparatorHeight = 10;

    ListBetsLogic();

    // Fills the filters, selects the default race and bettor and lists the bets.
    void Form_Load();
    // The window comes to the front: bets may have changed under it.
    void Form_Activate();
    void comRaceName_Click();
    void comBettor_Click();
    void comBetType_Click();
    void chkDefault_Click();
    void optAllBets_Click();
    void optWinnersOnly_Click();
    // A click on a row of the grid (header row 0) shows the bet's picks by name.
    void flxBets_Click(int row);
    void cmdCancel_Click() { Unload(); }

    // Rebuilds grid and totals from the filters.
    void BuildBetList();
    // How the rows come into the order of their sort key: built in that order where the ticket
    // numbers allow it, which is the same as the grid's generic sort and much faster, or
    // through the generic sort itself.
    enum class RowOrder { kBuiltInOrder, kGenericSort };
    void BuildBetList(RowOrder order);

    // The row between two tickets.
    bool IsSeparatorRow(int row) const;

    // The picks of a bet as the grid shows them: "3,5,1 ", and after results how an exotic or
    // multi-race bet did: "3,5  (2 correct,  1 winning bet)".
    static std::string PicksText(int race, const BetRec& bet);
    static void PicksText(int race, const BetRec& bet, std::string& text);

    // The size the window opens at, twips, from the main window's.
    int Height = 0;
    int Width = 0;

    ListData comRaceName;
    ListData comBettor{true};
    ListData comBetType;
    ControlState optAllBets, optWinnersOnly, chkDefault, cmdCancel;
    ControlState fraTotals, lblTotalCap, lblTotal, lblWonCap, lblWon, lblCollectedCap, lblCollected,
        lblDistributedCap, lblDistributed, lblDue, lblEditMsg;
    GridData flxBets;
    // The bet type filter, 0 for none.
    Int16 FilterType;

  private:
    void BuildBetTypeList();
    void SetUpGrid();
};

// The List Bets window on screen, whose grid the report of listed bets reads; null while none
// is open. The window registers its logic for as long as it lives.
ListBetsLogic* ShownListBets();
class ShownListBetsScope {
  public:
    explicit ShownListBetsScope(ListBetsLogic* logic);
    ~ShownListBetsScope();
    ShownListBetsScope(const ShownListBetsScope&) = delete;
    ShownListBetsScope& operator=(const ShownListBetsScope&) = delete;

  private:
    ListBetsLogic* saved_;
};

}  // namespace tt
