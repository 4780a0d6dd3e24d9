// findbar_bench: the find bar's search on a large document, side by side with
// the editing component's own search (the floor) in the same run.
//
//   findbar_bench FILE [--runs N]
//
// Both search the same buffer: one QsciScintilla holding FILE. The editor's
// side is TextSearcher, which the find bar calls; the floor steps through the
// buffer with SCI_SEARCHINTARGET, as a program using the component's own find
// does (its regular expressions are the component's basic ones). Each case is
// timed N times per side, alternated, and the medians are compared; the
// numbers of matches found must agree or the row says so.
#include "editing/textsearcher.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <vector>

namespace {

using Sci = QsciScintillaBase;
using koru::sedgui::SearchQuery;
using koru::sedgui::TextSearcher;

long send(Sci *editor, unsigned int message, long wParam = 0, long lParam = 0)
{
    return editor->SendScintilla(message, static_cast<unsigned long>(wParam), lParam);
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

// Every match from the start of the buffer to its end with the find bar's search.
long countOurs(Sci *editor, const SearchQuery &query)
{
    SearchQuery forward = query;
    forward.wrap = false;
    long count = 0;
    qint64 from = 0;
    for (;;) {
        const auto match = TextSearcher::find(editor, forward, from);
        if (!match.found())
            return count;
        ++count;
        from = std::max(match.end, match.start + 1);
    }
}

// The same with the component's search in the target range.
long countFloor(Sci *editor, const QByteArray &pattern, int flags)
{
    const long length = send(editor, Sci::SCI_GETLENGTH);
    send(editor, Sci::SCI_SETSEARCHFLAGS, flags);
    long count = 0;
    long from = 0;
    for (;;) {
        send(editor, Sci::SCI_SETTARGETRANGE, from, length);
        const long found =
            editor->SendScintilla(Sci::SCI_SEARCHINTARGET,
                                  static_cast<unsigned long>(pattern.size()), pattern.constData());
        if (found < 0)
            return count;
        ++count;
        from = std::max(send(editor, Sci::SCI_GETTARGETEND), found + 1);
    }
}

struct Case
{
    const char *name;
    std::function<long()> ours;
    std::function<long()> floor;
};

} // namespace

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QStringList args = QApplication::arguments();
    const qsizetype runsAt = args.indexOf(QStringLiteral("--runs"));
    const int runs = runsAt > 0 ? std::max(1, args.value(runsAt + 1).toInt()) : 5;
    QFile file(args.value(1));
    if (args.size() < 2 || !file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "usage: findbar_bench FILE [--runs N]\n");
        return 2;
    }
    const QByteArray bytes = file.readAll();

    QsciScintilla editor;
    editor.setUtf8(true);
    const auto load = [&] {
        editor.SendScintilla(Sci::SCI_CLEARALL);
        editor.SendScintilla(Sci::SCI_APPENDTEXT, static_cast<unsigned long>(bytes.size()),
                             bytes.constData());
        editor.SendScintilla(Sci::SCI_EMPTYUNDOBUFFER);
    };
    load();

    const auto plain = [](const char *text) {
        SearchQuery query;
        query.pattern = QString::fromUtf8(text);
        return query;
    };
    SearchQuery regex = plain("ring[0-9]+_flush");
    regex.regex = true;
    SearchQuery regexHits = plain("ring[0-9]+_push");
    regexHits.regex = true;
    Sci *sci = &editor;
    const std::vector<Case> cases = {
        {"literal, no match", [&] { return countOurs(sci, plain("ring_overflow")); },
         [&] { return countFloor(sci, "ring_overflow", 0); }},
        {"literal, every match", [&] { return countOurs(sci, plain("capacity")); },
         [&] { return countFloor(sci, "capacity", 0); }},
        {"regex, no match", [&] { return countOurs(sci, regex); },
         [&] { return countFloor(sci, "ring[0-9]+_flush", Sci::SCFIND_REGEXP); }},
        {"regex, every match", [&] { return countOurs(sci, regexHits); },
         [&] { return countFloor(sci, "ring[0-9]+_push", Sci::SCFIND_REGEXP); }},
    };

    std::printf("%-22s %10s %18s %18s %7s %8s\n", "case", "matches", "floor min/med ms",
                "find bar min/med ms", "ratio", "goal");
    for (const Case &c : cases) {
        std::vector<double> floorMs;
        std::vector<double> oursMs;
        long floorCount = -1;
        long oursCount = -1;
        for (int run = 0; run < runs; ++run) {
            for (int side = 0; side < 2; ++side) {
                QElapsedTimer timer;
                timer.start();
                const long count = side == 0 ? c.floor() : c.ours();
                const double ms = double(timer.nsecsElapsed()) / 1e6;
                (side == 0 ? floorMs : oursMs).push_back(ms);
                (side == 0 ? floorCount : oursCount) = count;
            }
        }
        const double ratio = median(oursMs) / std::max(median(floorMs), 0.001);
        const char *verdict = floorCount != oursCount ? "COUNTS DIFFER"
                              : ratio <= 1.2          ? "ok"
                                                      : "MISS";
        std::printf("%-22s %10ld %8.1f/%-9.1f %8.1f/%-9.1f %6.2fx %8s  %s\n", c.name, oursCount,
                    *std::min_element(floorMs.begin(), floorMs.end()), median(floorMs),
                    *std::min_element(oursMs.begin(), oursMs.end()), median(oursMs), ratio,
                    "<=1.20x", verdict);
        if (floorCount != oursCount)
            std::printf("%-22s floor found %ld\n", "", floorCount);
    }

    // Replace All has no floor: the component offers only a replacement per
    // match, which takes minutes here. The time is the editor's alone.
    std::vector<double> replaceMs;
    long replaced = 0;
    for (int run = 0; run < runs; ++run) {
        load();
        QElapsedTimer timer;
        timer.start();
        replaced = long(TextSearcher::replaceAll(sci, plain("capacity"), QStringLiteral("cap")));
        replaceMs.push_back(double(timer.nsecsElapsed()) / 1e6);
    }
    std::printf("%-22s %10ld %18s %8.1f/%-9.1f\n", "replace all", replaced, "-",
                *std::min_element(replaceMs.begin(), replaceMs.end()), median(replaceMs));
    return 0;
}
