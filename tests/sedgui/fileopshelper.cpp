// Runs one file operation in its own process, so that tests can run it as
// another user (setpriv) or under resource limits without touching the test
// process itself.
//   fileopshelper [--fsize-limit BYTES] save PATH   (new content on stdin)
//   fileopshelper read PATH                          (content to stdout)
// Exit status 0 on success; 1 with the error message on stderr; 2 on misuse.

#include "filereader.h"
#include "safesaver.h"

#include <QFile>

#include <csignal>
#include <cstdio>
#include <cstring>
#include <sys/resource.h>

using namespace koru::sedgui;

int main(int argc, char **argv)
{
    int arg = 1;
    if (argc > arg + 1 && std::strcmp(argv[arg], "--fsize-limit") == 0) {
        // Without this a write past the limit kills the process instead of
        // failing with EFBIG.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlim_t limit = rlim_t(std::strtoull(argv[arg + 1], nullptr, 10));
        const struct rlimit rl = {limit, limit};
        if (setrlimit(RLIMIT_FSIZE, &rl) != 0)
            return 2;
        arg += 2;
    }
    if (argc != arg + 2)
        return 2;
    const QString path = QFile::decodeName(argv[arg + 1]);
    QString error;
    if (std::strcmp(argv[arg], "save") == 0) {
        QFile in;
        if (!in.open(stdin, QIODevice::ReadOnly))
            return 2;
        if (SafeSaver::save(path, in.readAll(), &error))
            return 0;
    } else if (std::strcmp(argv[arg], "read") == 0) {
        QByteArray bytes;
        if (FileReader::read(path, &bytes, &error)) {
            std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout);
            return 0;
        }
    } else {
        return 2;
    }
    std::fprintf(stderr, "%s\n", error.toLocal8Bit().constData());
    return 1;
}
