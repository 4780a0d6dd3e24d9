#include "treegenerator.h"

#include <QDir>
#include <QFile>

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace {

class Random
{
public:
    explicit Random(std::uint64_t seed)
        : m_state(seed)
    {}
    std::uint32_t below(std::uint32_t n)
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return std::uint32_t(m_state >> 33) % n;
    }

private:
    std::uint64_t m_state;
};

constexpr std::array<std::string_view, 24> Words = {
    "int",    "value", "return", "struct", "buffer", "count", "index",  "static",
    "const",  "void",  "char",   "size",   "data",   "node",  "list",   "next",
    "result", "error", "offset", "length", "header", "entry", "update", "state"};

std::string makeLine(Random &random)
{
    std::string line(4 * random.below(4), ' ');
    const int words = 4 + int(random.below(8));
    for (int i = 0; i < words; ++i) {
        if (i)
            line += random.below(5) == 0 ? "_" : " ";
        line += Words[random.below(Words.size())];
    }
    line += random.below(3) == 0 ? "();" : ";";
    return line;
}

std::string makeFile(std::uint64_t seed, bool withRare)
{
    Random random(seed);
    std::string text;
    text.reserve(TreeGenerator::FileBytes + 256);
    std::vector<std::string> lines;
    while (text.size() < size_t(TreeGenerator::FileBytes)) {
        std::string line = makeLine(random);
        text += line;
        text += '\n';
        lines.push_back(std::move(line));
    }
    // Put the tokens on evenly spread lines.
    text.clear();
    const size_t step = lines.size() / TreeGenerator::HitsPerFile;
    for (size_t i = 0; i < lines.size(); ++i) {
        text += lines[i];
        if (step && i % step == 0 && i / step < size_t(TreeGenerator::HitsPerFile)) {
            text += " /* ";
            text += TreeGenerator::CommonToken;
            text += " */";
        }
        if (withRare && i == lines.size() / 2) {
            text += " // ";
            text += TreeGenerator::RareToken;
        }
        text += '\n';
    }
    return text;
}

} // namespace

bool TreeGenerator::ensure(const QString &root, QString *error)
{
    const QString marker = root + QStringLiteral("/complete");
    if (QFile::exists(marker))
        return true;
    QDir().mkpath(root + QStringLiteral("/tree"));
    qint64 index = 0;
    for (int folder = 0; folder < Folders; ++folder) {
        for (int sub = 0; sub < SubFolders; ++sub) {
            const QString dir =
                QStringLiteral("%1/tree/mod%2/part%3").arg(root).arg(folder).arg(sub);
            if (!QDir().mkpath(dir)) {
                *error = QStringLiteral("cannot create %1").arg(dir);
                return false;
            }
            for (int file = 0; file < FilesPerFolder; ++file, ++index) {
                const std::string text =
                    makeFile(std::uint64_t(index) * 7919 + 17, index % RareEvery == 0);
                QFile out(QStringLiteral("%1/unit%2.c").arg(dir).arg(file));
                if (!out.open(QIODevice::WriteOnly) ||
                    out.write(text.data(), qint64(text.size())) != qint64(text.size())) {
                    *error = QStringLiteral("cannot write %1").arg(out.fileName());
                    return false;
                }
            }
        }
    }
    QFile done(marker);
    return done.open(QIODevice::WriteOnly);
}
