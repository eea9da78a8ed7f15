#include "shell/forms/gui_support.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMdiSubWindow>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QTableView>
#include <QTimer>

#include "model/app_error.h"
#include "model/error_path.h"
#include "model/window_placement.h"
#include "shell/forms/qt_printer.h"

namespace tt::gui {

namespace {
double TwipsPerPixel() {
    double dpi = 96.0;
    if (auto* screen = QGuiApplication::primaryScreen()) dpi = screen->logicalDotsPerInch();
    if (dpi <= 0) dpi = 96.0;
    return 1440.0 / dpi;
}

QColor ColorOf(std::uint32_t bgr) {
    return QColor(int(bgr & 0xFF), int((bgr >> 8) & 0xFF), int((bgr >> 16) & 0xFF));
}
}  // namespace

int Twips(double twips) {
    return static_cast<int>(twips / TwipsPerPixel() + 0.5);
}
double ToTwips(int pixels) {
    return pixels * TwipsPerPixel();
}

void Guard(QWidget* form, bool unloadOnError, const std::function<void()>& handler) {
    try {
        handler();
    } catch (const std::exception& e) {
        ShowUnexpectedError(ToAppError(e));
        if (unloadOnError && form && form->objectName() != "frmMain") form->close();
    }
}

void ApplyFocus(QWidget* form, FormState& logic) {
    if (logic.focus.empty()) return;
    if (auto* w = form->findChild<QWidget*>(Q(logic.focus))) w->setFocus(Qt::OtherFocusReason);
    logic.focus.clear();
}

void ApplyFocus(QWidget* form, FormState& logic, std::string& selectText) {
    ApplyFocus(form, logic);
    if (selectText.empty()) return;
    if (auto* e = form->findChild<QLineEdit*>(Q(selectText)))
        QTimer::singleShot(0, e, [e] { e->selectAll(); });
    selectText.clear();
}

void FillCombo(QComboBox* box, const ListData& list) {
    QSignalBlocker block(box);
    box->clear();
    for (const auto& item : list.Items())
        box->addItem(Q(item.text), QVariant::fromValue<qlonglong>(item.itemData));
    box->setCurrentIndex(list.ListIndex());
}

void FillList(QListWidget* box, const ListData& list) {
    QSignalBlocker block(box);
    box->clear();
    for (const auto& item : list.Items()) {
        auto* w = new QListWidgetItem(Q(item.text), box);
        w->setData(Qt::UserRole, QVariant::fromValue<qlonglong>(item.itemData));
    }
    box->setCurrentRow(list.ListIndex());
}

void Apply(QLabel* label, const ControlState& s) {
    label->setText(Q(s.text));
    label->setToolTip(Q(s.toolTip));
    label->setVisible(s.visible);
    label->setEnabled(s.enabled);
}

void Apply(QAbstractButton* button, const ControlState& s) {
    QSignalBlocker block(button);
    button->setText(Q(s.text));
    button->setToolTip(Q(s.toolTip));
    button->setVisible(s.visible);
    button->setEnabled(s.enabled);
    if (button->isCheckable()) button->setChecked(s.value != 0);
}

void Apply(QLineEdit* edit, const ControlState& s) {
    QSignalBlocker block(edit);
    if (edit->text() != Q(s.text)) edit->setText(Q(s.text));
    edit->setToolTip(Q(s.toolTip));
    edit->setVisible(s.visible);
    edit->setEnabled(s.enabled);
    QPalette p = edit->palette();
    p.setColor(QPalette::Base, s.backColor == kColorWhite
                                   ? QApplication::palette().color(QPalette::Base)
                                   : ColorOf(s.backColor));
    edit->setPalette(p);
}

QWidget* KeptPlacement::Frame() const {
    if (auto* sub = qobject_cast<QMdiSubWindow*>(form_->parentWidget())) return sub;
    return form_;
}

void KeptPlacement::Restore() {
    if (placed_) return;
    placed_ = true;
    QWidget* frame = Frame();
    Placement p;
    Guard(form_, false, [&] { p = RestoreWindowPlacement(prefix_); });
    if (withSize_ && p.width > 0 && p.height > 0)
        frame->resize(std::max(Twips(p.width), frame->minimumSizeHint().width()),
                      std::max(Twips(p.height), frame->minimumSizeHint().height()));
    else
        frame->resize(frame->sizeHint());
    frame->move(Twips(p.left), Twips(p.top));
}

void KeptPlacement::Save() {
    QWidget* frame = Frame();
    if (!placed_ || frame->isMinimized() || frame->isMaximized()) return;
    const QRect g = frame->geometry();
    Guard(form_, false, [&] {
        SaveWindowPlacement(
            prefix_, {ToTwips(g.x()), ToTwips(g.y()), ToTwips(g.width()), ToTwips(g.height())},
            withSize_);
    });
}

void GridModel::SetGrid(const GridData* grid) {
    beginResetModel();
    grid_ = grid;
    endResetModel();
}

int GridModel::rowCount(const QModelIndex& parent) const {
    if (parent.isValid() || !grid_) return 0;
    return std::max(0, grid_->Rows() - grid_->FixedRows());
}

int GridModel::columnCount(const QModelIndex& parent) const {
    if (parent.isValid() || !grid_) return 0;
    return grid_->Cols();
}

QVariant GridModel::data(const QModelIndex& index, int role) const {
    if (!grid_ || !index.isValid()) return {};
    int row = index.row() + grid_->FixedRows();
    if (role == Qt::DisplayRole) return Q(grid_->TextMatrix(row, index.column()));
    if (role == Qt::TextAlignmentRole) {
        switch (grid_->CellAlignment(row, index.column())) {
            case CellAlign::kCenter:
                return int(Qt::AlignCenter);
            case CellAlign::kRight:
                return int(Qt::AlignRight | Qt::AlignVCenter);
            case CellAlign::kLeft:
                return int(Qt::AlignLeft | Qt::AlignVCenter);
            case CellAlign::kGeneral: {
                double v;
                return SortsAsNumber(grid_->TextMatrix(row, index.column()), v)
                           ? int(Qt::AlignRight | Qt::AlignVCenter)
                           : int(Qt::AlignLeft | Qt::AlignVCenter);
            }
        }
    }
    if (role == Qt::BackgroundRole && index.column() < grid_->FixedCols())
        return QApplication::palette().color(QPalette::Button);
    return {};
}

QVariant GridModel::headerData(int section, Qt::Orientation o, int role) const {
    if (!grid_) return {};
    if (o == Qt::Horizontal && grid_->FixedRows() > 0 && section < grid_->Cols()) {
        if (role == Qt::DisplayRole) return Q(grid_->TextMatrix(0, section));
        if (role == Qt::TextAlignmentRole) return int(Qt::AlignCenter);
    }
    return {};
}

void ApplyGridLayout(QTableView* view, const GridData& grid) {
    view->verticalHeader()->setVisible(false);
    view->horizontalHeader()->setVisible(grid.FixedRows() > 0);
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setEditTriggers(QAbstractItemView::NoEditTriggers);
    view->verticalHeader()->setDefaultSectionSize(Twips(240) + 4);
    for (int c = 0; c < grid.Cols(); ++c) {
        int w = grid.ColWidth(c);
        view->setColumnHidden(c, w == 0);
        if (w > 0) view->setColumnWidth(c, Twips(w));
    }
    for (int r = grid.FixedRows(); r < grid.Rows(); ++r) {
        int h = grid.RowHeight(r);
        if (h >= 0) view->setRowHeight(r - grid.FixedRows(), std::max(2, Twips(h)));
    }
}

QIcon AppIcon() {
    QIcon icon;
    for (int size : {16, 32, 48, 64, 128}) {
        QPixmap pm(size, size);
        pm.fill(Qt::transparent);
        QPainter p(&pm);
        p.setRenderHint(QPainter::Antialiasing);
        p.setBrush(QColor(30, 95, 55));
        p.setPen(QPen(QColor(250, 240, 200), size / 16.0));
        p.drawRoundedRect(QRectF(0.5, 0.5, size - 1, size - 1), size / 5.0, size / 5.0);
        QFont f;
        f.setBold(true);
        f.setItalic(true);
        f.setPixelSize(size * 9 / 16);
        p.setFont(f);
        p.drawText(QRectF(0, 0, size, size), Qt::AlignCenter, "TT");
        icon.addPixmap(pm);
    }
    return icon;
}

namespace {

class QtMessages : public MessagePort {
  public:
    int Show(const MessageRequest& r) override {
        QMessageBox box(QApplication::activeWindow());
        box.setWindowTitle(Q(r.title.empty() ? kDefaultTitle : r.title));
        // The messages join their lines with CR LF or LF CR; show each joint as one break.
        QString text = Q(r.text);
        text.replace("\r\n", "\n").replace("\n\r", "\n").replace('\r', '\n');
        box.setText(text);
        switch (r.icon) {
            case Icon::kNone:
                box.setIcon(QMessageBox::NoIcon);
                break;
            case Icon::kExclamation:
                box.setIcon(QMessageBox::Warning);
                break;
            case Icon::kInformation:
                box.setIcon(QMessageBox::Information);
                break;
            case Icon::kQuestion:
                box.setIcon(QMessageBox::Question);
                break;
            case Icon::kCritical:
                box.setIcon(QMessageBox::Critical);
                break;
        }
        std::vector<std::pair<QMessageBox::StandardButton, int>> buttons;
        switch (r.buttons) {
            case Buttons::kOK:
                buttons = {{QMessageBox::Ok, kOK}};
                break;
            case Buttons::kOKCancel:
                buttons = {{QMessageBox::Ok, kOK}, {QMessageBox::Cancel, kCancel}};
                break;
            case Buttons::kYesNo:
                buttons = {{QMessageBox::Yes, kYes}, {QMessageBox::No, kNo}};
                break;
            case Buttons::kYesNoCancel:
                buttons = {{QMessageBox::Yes, kYes},
                           {QMessageBox::No, kNo},
                           {QMessageBox::Cancel, kCancel}};
                break;
        }
        QMessageBox::StandardButtons all;
        for (auto& b : buttons) all |= b.first;
        box.setStandardButtons(all);
        std::size_t def =
            static_cast<std::size_t>(std::clamp(r.defaultButton, 0, int(buttons.size()) - 1));
        box.setDefaultButton(buttons[def].first);
        box.setEscapeButton(buttons.back().first);
        QApplication::restoreOverrideCursor();
        int result = box.exec();
        for (auto& b : buttons)
            if (b.first == result) return b.second;
        // Closed by the window frame: the escape answer.
        return buttons.back().second;
    }
    void Beep() override { QApplication::beep(); }
};

QString FilterOf(const std::string& filter) {
    // "Tamberlin Tally Files (*.tly)|*.tly|All (*.*)|*.*" -> "Tamberlin Tally Files (*.tly);;All
    // (*.*)"
    QStringList parts = Q(filter).split('|');
    QStringList out;
    for (int i = 0; i + 1 < parts.size(); i += 2) out << parts[i];
    return out.join(";;");
}

class QtDialogs : public FileDialogPort {
  public:
    std::optional<std::string> Open(const FileDialogRequest& r) override {
        QString name = QFileDialog::getOpenFileName(QApplication::activeWindow(), Q(r.title),
                                                    Q(r.initialName), FilterOf(r.filter));
        if (name.isEmpty()) return std::nullopt;
        return S(QDir::toNativeSeparators(name));
    }
    std::optional<std::string> Save(const FileDialogRequest& r) override {
        QFileDialog dlg(QApplication::activeWindow(), Q(r.title), Q(r.initialName),
                        FilterOf(r.filter));
        dlg.setAcceptMode(QFileDialog::AcceptSave);
        if (!r.defaultExt.empty())
            dlg.setDefaultSuffix(Q(r.defaultExt).remove(0, r.defaultExt[0] == '.' ? 1 : 0));
        if (!r.overwritePrompt) dlg.setOption(QFileDialog::DontConfirmOverwrite);
        if (dlg.exec() != QDialog::Accepted || dlg.selectedFiles().isEmpty()) return std::nullopt;
        return S(QDir::toNativeSeparators(dlg.selectedFiles().first()));
    }
};

}  // namespace

std::unique_ptr<MessagePort> MakeMessageBoxes() {
    return std::make_unique<QtMessages>();
}
std::unique_ptr<FileDialogPort> MakeFileDialogs() {
    return std::make_unique<QtDialogs>();
}
std::unique_ptr<PrinterPort> MakePrinter() {
    return std::make_unique<QtPrinter>();
}

}  // namespace tt::gui
