#include "betting/forms/frm_bet_display.h"
#include "betting/forms/frm_close_transaction.h"
#include "betting/forms/frm_place_bets.h"
#include "betting/forms/frm_ticket_header.h"
#include "betting/forms/frm_transaction.h"
#include "shell/forms/form_registry.h"

namespace tt::gui {

void RegisterBettingForms() {
    RegisterForm("frmTransaction", [](QWidget* parent) { return new frmTransaction(parent); });
    RegisterForm("frmTicketHeader", [](QWidget* parent) { return new frmTicketHeader(parent); });
    RegisterForm("frmPlaceBets", [](QWidget* parent) { return new frmPlaceBets(parent); });
    RegisterForm("frmBetDisplay", [](QWidget* parent) { return new frmBetDisplay(parent); });
    RegisterForm("frmCloseTransaction",
                 [](QWidget* parent) { return new frmCloseTransaction(parent); });
}

}  // namespace tt::gui
