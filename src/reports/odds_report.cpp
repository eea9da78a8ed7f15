// Report 4: the pools and odds of a race.

#include "model/number_text.h"
#include "model/race_file.h"
#include "reports/report_writer.h"

namespace tt {

void ReportWriter::Section(const std::string& title, const std::vector<ReportLine>& heads,
                           const std::vector<ReportLine>& rows) {
    const int size = static_cast<int>(heads.size() + rows.size());
    if (lines_ + size > LinesPerPage) NewPageUnlessFresh(title);
    for (const ReportLine& h : heads) Print(h);
    for (const ReportLine& r : rows) {
        if (lines_ + 1 > LinesPerPage && lines_ > kHeaderLines + static_cast<int>(heads.size())) {
            PageHeader(title);
            for (const ReportLine& h : heads) Print(h);
        }
        Print(r);
    }
}

void ReportWriter::PrintOdds(int race, int oddsBetType) {
    (void)oddsBetType;
    PageHeader("Betting Pool and Odds for Race #" + NumText(race) + " - " + RF.Race(race).RaceName);
}

}  // namespace tt
