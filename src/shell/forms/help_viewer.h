#pragma once
// The help viewer: the topics of the program's help with their contents, back and forward,
// and a search by word over all of them.

#include <QWidget>
#include <string>
#include <vector>

class QLineEdit;
class QListWidget;
class QSplitter;
class QTabWidget;
class QTextBrowser;
class QToolButton;
class QTreeWidget;

namespace tt {
struct HelpTopic;
}

namespace tt::gui {

class HelpViewer : public QWidget {
    Q_OBJECT

  public:
    // `helpName` names the help: its pages are read from ":/<helpName>/".
    explicit HelpViewer(const std::string& helpName, QWidget* parent = nullptr);

    void ShowTopic(const HelpTopic& topic);
    // The search page, its box ready for a word.
    void ShowSearch();
    // Searches all topics for the words of the box and lists the topics found.
    void RunSearch();
    // The page shown, such as "overview.html".
    std::string CurrentFile() const;

    QTextBrowser* Browser() const { return browser_; }
    QTreeWidget* Contents() const { return contents_; }
    QLineEdit* SearchBox() const { return searchBox_; }
    QListWidget* Results() const { return results_; }
    QToolButton* BackButton() const { return back_; }
    QToolButton* ForwardButton() const { return forward_; }

    // Where the viewer opens: where it was last left, or else centred on the screen that holds
    // the main window; whole on a screen either way.
    void Place(QWidget* mainWindow);

  protected:
    void closeEvent(QCloseEvent* event) override;

  private:
    void RememberPlacement();
    void OpenResult(int row);
    void SelectInContents();
    const std::vector<std::string>& Texts();

    std::string helpName_;
    QTextBrowser* browser_ = nullptr;
    QTreeWidget* contents_ = nullptr;
    QTabWidget* tabs_ = nullptr;
    QLineEdit* searchBox_ = nullptr;
    QListWidget* results_ = nullptr;
    QToolButton* back_ = nullptr;
    QToolButton* forward_ = nullptr;
    std::vector<std::string> texts_;
    QSplitter* split_ = nullptr;
};

}  // namespace tt::gui
