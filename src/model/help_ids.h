#pragma once
// The help context of each window: a window's Help button, and Window Help while it is the
// active child, show the topic with this number.

namespace tt::help {

inline constexpr int kOverview = 4000;         // a race day from card to payouts
inline constexpr int kInitialOpen = 4001;      // frmInitialOpen
inline constexpr int kMainWindow = 4002;       // frmMain, its menus and toolbar
inline constexpr int kAbout = 4003;            // frmAbout
inline constexpr int kResetMax = 4004;         // frmResetMax
inline constexpr int kRaceCard = 4010;         // frmRaceCard
inline constexpr int kRaceCardGeneral = 4011;  // its tabs 0 to 4
inline constexpr int kRaceCardDefaults = 4012;
inline constexpr int kRaceCardRaces = 4013;
inline constexpr int kRaceCardRacers = 4014;
inline constexpr int kRaceCardBackup = 4015;
inline constexpr int kEditRacer = 4020;             // frmEditRacer
inline constexpr int kCopyRacers = 4021;            // frmCopyRacers
inline constexpr int kSelectBettor = 4022;          // frmSelectBettor
inline constexpr int kEditBettor = 4023;            // frmEditBettor
inline constexpr int kTransaction = 4030;           // frmTransaction
inline constexpr int kTicketHeader = 4031;          // frmTicketHeader
inline constexpr int kPlaceBets = 4032;             // frmPlaceBets
inline constexpr int kCloseTransaction = 4033;      // frmCloseTransaction
inline constexpr int kBetDisplay = 4034;            // frmBetDisplay
inline constexpr int kEditResults = 4050;           // frmEditResults
inline constexpr int kPayoutHandling = 4051;        // frmPayoutHandling
inline constexpr int kDisplayPayouts = 4052;        // frmDisplayPayouts
inline constexpr int kDisplayOdds = 4053;           // frmDisplayOdds
inline constexpr int kOddsBoard = 4054;             // its board for the room
inline constexpr int kListBets = 4060;              // frmListBets
inline constexpr int kPrint = 4061;                 // frmPrint
inline constexpr int kSelectRaceAndBetType = 4062;  // frmSelectRaceAndBetType
inline constexpr int kRestore = 4070;               // frmRestore
inline constexpr int kImportBettors = 4071;         // frmImportBettors

}  // namespace tt::help
