// Writes the manual pages tally.1 and tamberlin-tally.1 from the help texts at build time:
//
//   make-man-pages OUTDIR DATE

#include <QCoreApplication>
#include <cstdio>
#include <fstream>
#include <string>

#include "cli/man_page.h"

namespace {
bool Write(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    out << text;
    if (!out) std::fprintf(stderr, "make-man-pages: cannot write %s\n", path.c_str());
    return bool(out);
}
}  // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    if (argc != 3) {
        std::fprintf(stderr, "usage: make-man-pages OUTDIR DATE\n");
        return 2;
    }
    const std::string dir = argv[1];
    const std::string date = argv[2];
    const bool ok = Write(dir + "/tally.1", tt::cli::TallyManPage(date)) &&
                    Write(dir + "/tamberlin-tally.1", tt::cli::ProgramManPage(date));
    return ok ? 0 : 1;
}
