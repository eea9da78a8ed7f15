#pragma once
// The program's help: its topics in the order of the contents, each with the help context of
// the window it explains, and the search by word over their text.

#include <string>
#include <string_view>
#include <vector>

namespace tt {

struct HelpTopic {
    int contextId;     // 0 for a topic that no window names
    const char* file;  // the page inside the help, such as "overview.html"
    const char* title;
    const char* group;  // the heading of the contents it stands under
};

// The name of the program's help: its pages live under ":/Tlyhelp/".
inline constexpr const char* kHelpName = "Tlyhelp";

// Every topic, in the order of the contents.
const std::vector<HelpTopic>& HelpTopics();
// The topic of a help context, or nullptr.
const HelpTopic* HelpTopicFor(int contextId);
// The topic of a page, or nullptr.
const HelpTopic* HelpTopicOfFile(std::string_view file);

// The words of a text, in lower case: runs of letters and digits (an apostrophe inside a word
// belongs to it).
std::vector<std::string> HelpWords(std::string_view text);

// The topics whose text holds every word of the query, each query word matching the start of
// a word of the text ("payout" finds "payouts"). The best first: most hits, then the order
// of the contents. `texts` holds the plain text of each topic, in the order of HelpTopics().
std::vector<std::size_t> SearchHelp(std::string_view query, const std::vector<std::string>& texts);

}  // namespace tt
