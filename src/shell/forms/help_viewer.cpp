#include "shell/forms/help_viewer.h"

#include <QFile>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSplitter>
#include <QStyle>
#include <QTabWidget>
#include <QTextBrowser>
#include <QTextDocument>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>

#include "model/help_ids.h"
#include "shell/forms/gui_support.h"
#include "shell/help_topics.h"

namespace tt::gui {

namespace {
constexpr int kFileRole = Qt::UserRole;
constexpr int kTopicRole = Qt::UserRole + 1;
}  // namespace

HelpViewer::HelpViewer(const std::string& helpName, QWidget* parent)
    : QWidget(parent, Qt::Window), helpName_(helpName) {
    setObjectName("HelpViewer");
    setWindowTitle("Tamberlin Tally Help");
    setAttribute(Qt::WA_DeleteOnClose);

    auto* layout = new QVBoxLayout(this);
    auto* bar = new QHBoxLayout;
    auto tool = [&](const char* text, QStyle::StandardPixmap icon, const char* tip) {
        auto* b = new QToolButton(this);
        b->setText(text);
        b->setIcon(style()->standardIcon(icon));
        b->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        b->setToolTip(tip);
        bar->addWidget(b);
        return b;
    };
    back_ = tool("&Back", QStyle::SP_ArrowBack, "Go back to the topic shown before.");
    forward_ = tool("&Forward", QStyle::SP_ArrowForward, "Go forward again.");
    QToolButton* home =
        tool("&Overview", QStyle::SP_DirHomeIcon, "A race day from card to payouts.");
    bar->addStretch();
    layout->addLayout(bar);

    auto* split = new QSplitter(this);
    tabs_ = new QTabWidget(split);
    contents_ = new QTreeWidget(tabs_);
    contents_->setObjectName("Contents");
    contents_->setHeaderHidden(true);
    QTreeWidgetItem* groupItem = nullptr;
    std::string group;
    for (std::size_t i = 0; i < HelpTopics().size(); ++i) {
        const HelpTopic& t = HelpTopics()[i];
        if (!groupItem || group != t.group) {
            group = t.group;
            groupItem = new QTreeWidgetItem(contents_, {Q(group)});
            groupItem->setFlags(Qt::ItemIsEnabled);
            groupItem->setExpanded(true);
        }
        auto* item = new QTreeWidgetItem(groupItem, {Q(t.title)});
        item->setData(0, kFileRole, Q(t.file));
        item->setData(0, kTopicRole, static_cast<int>(i));
    }
    tabs_->addTab(contents_, "&Contents");

    auto* searchPage = new QWidget(tabs_);
    auto* searchLayout = new QVBoxLayout(searchPage);
    searchLayout->addWidget(new QLabel("Type the words to look for:", searchPage));
    auto* searchRow = new QHBoxLayout;
    searchBox_ = new QLineEdit(searchPage);
    searchBox_->setObjectName("SearchBox");
    searchBox_->setPlaceholderText("for example: payout");
    auto* find = new QPushButton("&Find", searchPage);
    searchRow->addWidget(searchBox_);
    searchRow->addWidget(find);
    searchLayout->addLayout(searchRow);
    results_ = new QListWidget(searchPage);
    results_->setObjectName("Results");
    searchLayout->addWidget(results_);
    tabs_->addTab(searchPage, "&Search");

    browser_ = new QTextBrowser(split);
    browser_->setObjectName("Topic");
    browser_->setOpenExternalLinks(true);
    browser_->setSearchPaths({":/" + Q(helpName_)});
    split->addWidget(tabs_);
    split->addWidget(browser_);
    split->setStretchFactor(1, 1);
    split->setSizes({Twips(4500), Twips(8700)});
    layout->addWidget(split);
    resize(Twips(13200), Twips(9000));

    back_->setEnabled(false);
    forward_->setEnabled(false);
    connect(back_, &QToolButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward_, &QToolButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back_, &QToolButton::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward_, &QToolButton::setEnabled);
    connect(home, &QToolButton::clicked, this, [this] {
        if (const HelpTopic* t = HelpTopicFor(help::kOverview)) ShowTopic(*t);
    });
    connect(browser_, &QTextBrowser::sourceChanged, this, [this] { SelectInContents(); });
    connect(contents_, &QTreeWidget::itemActivated, this, [this](QTreeWidgetItem* item) {
        QVariant i = item->data(0, kTopicRole);
        if (i.isValid()) ShowTopic(HelpTopics()[static_cast<std::size_t>(i.toInt())]);
    });
    connect(contents_, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
        QVariant i = item->data(0, kTopicRole);
        if (i.isValid()) ShowTopic(HelpTopics()[static_cast<std::size_t>(i.toInt())]);
    });
    connect(find, &QPushButton::clicked, this, &HelpViewer::RunSearch);
    connect(searchBox_, &QLineEdit::returnPressed, this, &HelpViewer::RunSearch);
    connect(results_, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { OpenResult(results_->row(item)); });
    connect(results_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { OpenResult(results_->row(item)); });
}

void HelpViewer::ShowTopic(const HelpTopic& topic) {
    QUrl url("qrc:/" + Q(helpName_) + "/" + Q(topic.file));
    if (browser_->source() != url) browser_->setSource(url);
    SelectInContents();
}

void HelpViewer::ShowSearch() {
    tabs_->setCurrentIndex(1);
    searchBox_->setFocus();
    searchBox_->selectAll();
}

std::string HelpViewer::CurrentFile() const {
    return S(browser_->source().fileName());
}

const std::vector<std::string>& HelpViewer::Texts() {
    if (texts_.empty()) {
        for (const HelpTopic& t : HelpTopics()) {
            QFile f(":/" + Q(helpName_) + "/" + Q(t.file));
            QTextDocument doc;
            if (f.open(QIODevice::ReadOnly)) doc.setHtml(QString::fromUtf8(f.readAll()));
            texts_.push_back(S(doc.toPlainText()));
        }
    }
    return texts_;
}

void HelpViewer::RunSearch() {
    results_->clear();
    std::vector<std::size_t> found = SearchHelp(S(searchBox_->text()), Texts());
    for (std::size_t i : found) {
        auto* item = new QListWidgetItem(Q(HelpTopics()[i].title), results_);
        item->setData(kTopicRole, static_cast<int>(i));
    }
    if (found.empty() && !searchBox_->text().trimmed().isEmpty())
        new QListWidgetItem("(No topic holds all of these words.)", results_);
    else if (!found.empty())
        results_->setCurrentRow(0);
}

void HelpViewer::OpenResult(int row) {
    QListWidgetItem* item = results_->item(row);
    if (!item || !item->data(kTopicRole).isValid()) return;
    ShowTopic(HelpTopics()[static_cast<std::size_t>(item->data(kTopicRole).toInt())]);
    // Show where the first word stands in the topic.
    std::vector<std::string> words = HelpWords(S(searchBox_->text()));
    if (!words.empty()) {
        browser_->moveCursor(QTextCursor::Start);
        browser_->find(Q(words.front()));
    }
}

void HelpViewer::SelectInContents() {
    QString file = browser_->source().fileName();
    for (QTreeWidgetItemIterator it(contents_); *it; ++it) {
        if ((*it)->data(0, kFileRole).toString() == file) {
            QSignalBlocker block(contents_);
            contents_->setCurrentItem(*it);
            break;
        }
    }
    if (const HelpTopic* t = HelpTopicOfFile(S(file)))
        setWindowTitle(QString("Tamberlin Tally Help - ") + t->title);
}

}  // namespace tt::gui
