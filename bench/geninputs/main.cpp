// geninputs: writes the benchmark's input files into a folder, the same bytes
// on every run.
//
//   geninputs OUTDIR
//
// c-50mb.c            50 MiB of C source: one realistic unit repeated with
//                     fresh identifiers, comments, strings, loops and macros
// lines-2m.txt        2,000,000 short lines of words (8 to 40 bytes), about 50 MB
// oneline-10mb.min.js 10 MiB of minified script on a single line
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>

namespace {

constexpr std::size_t MiB = 1024 * 1024;

class Random
{
public:
    std::uint32_t next()
    {
        m_state = m_state * 6364136223846793005ULL + 1442695040888963407ULL;
        return std::uint32_t(m_state >> 33);
    }
    std::uint32_t below(std::uint32_t n) { return next() % n; }

private:
    std::uint64_t m_state = 0x5eed;
};

constexpr std::string_view kWords[] = {
    "alpha", "beta",  "buffer", "cache", "delta",  "entry", "field", "gamma", "header", "index",
    "key",   "label", "mode",   "node",  "offset", "page",  "queue", "range", "state",  "token",
    "unit",  "value", "width",  "x",     "yield",  "zone",  "a",     "of",    "the",    "to"};

// One unit of C: replaces every "@" with the unit's number.
constexpr std::string_view kCUnit = R"(
/*
 * Ring buffer @: a fixed-size queue of records used by the scheduler.
 * Producers call ring@_push(), the consumer drains with ring@_pop().
 */
struct ring@ {
    unsigned char *data;
    size_t head;
    size_t tail;
    size_t capacity;
    int flags;
};

#define RING@_FULL(r) (((r)->head + 1) % (r)->capacity == (r)->tail)
#define RING@_EMPTY(r) ((r)->head == (r)->tail)

static int ring@_init(struct ring@ *r, size_t capacity)
{
    if (capacity == 0 || capacity > (1u << 24))
        return -EINVAL;
    r->data = calloc(capacity, sizeof(*r->data));
    if (r->data == NULL) {
        fprintf(stderr, "ring@: out of memory (%zu bytes)\n", capacity);
        return -ENOMEM;
    }
    r->head = r->tail = 0;
    r->capacity = capacity;
    r->flags = 0;
    return 0;
}

static int ring@_push(struct ring@ *r, unsigned char value)
{
    if (RING@_FULL(r))
        return -EAGAIN;
    r->data[r->head] = value;
    r->head = (r->head + 1) % r->capacity;
    return 0;
}

static int ring@_pop(struct ring@ *r, unsigned char *out)
{
    if (RING@_EMPTY(r))
        return -EAGAIN;
    *out = r->data[r->tail];
    r->tail = (r->tail + 1) % r->capacity;
    return 0;
}

/* Sums the queued bytes without consuming them; used by the statistics page. */
static unsigned long ring@_checksum(const struct ring@ *r)
{
    unsigned long sum = 0;
    for (size_t i = r->tail; i != r->head; i = (i + 1) % r->capacity) {
        sum = (sum << 5) + sum + r->data[i]; /* djb2 */
    }
    switch (r->flags & 3) {
    case 0:
        break;
    case 1:
        sum ^= 0x5bd1e995UL;
        break;
    default:
        sum = ~sum;
        break;
    }
    return sum;
}
)";

constexpr std::string_view kScriptUnit =
    R"(function f@(a,b){var c=a.length|0,d=[];for(var i=0;i<c;i++){if(a[i]>b){d.push(a[i]*2)}else{d.push("k@:"+a[i])}}return d}var o@={id:@,name:"item@",tags:["x","y"],run:function(){return f@([1,2,3],@%7)}};)";

void appendUnit(std::string &out, std::string_view unit, std::size_t number)
{
    const std::string tag = std::to_string(number);
    for (const char c : unit) {
        if (c == '@')
            out += tag;
        else
            out += c;
    }
}

bool writeFile(const std::filesystem::path &path, const std::string &bytes)
{
    const std::filesystem::path partial = path.string() + ".part";
    FILE *file = std::fopen(partial.c_str(), "wb");
    if (!file)
        return false;
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
    if (std::fclose(file) != 0 || !written)
        return false;
    std::filesystem::rename(partial, path);
    return true;
}

std::string cSource(std::size_t size)
{
    std::string out = "#include <errno.h>\n#include <stdio.h>\n#include <stdlib.h>\n";
    out.reserve(size + kCUnit.size() * 2);
    for (std::size_t n = 0; out.size() < size; ++n)
        appendUnit(out, kCUnit, n);
    out.resize(size - 1);
    out += '\n';
    return out;
}

std::string shortLines(std::size_t count)
{
    Random random;
    std::string out;
    out.reserve(count * 26);
    for (std::size_t line = 0; line < count; ++line) {
        const std::size_t length = 8 + random.below(33);
        const std::size_t start = out.size();
        while (out.size() - start < length) {
            if (out.size() != start)
                out += ' ';
            out += kWords[random.below(std::size(kWords))];
        }
        out.resize(start + length);
        out += '\n';
    }
    return out;
}

std::string oneLine(std::size_t size)
{
    std::string out;
    out.reserve(size + kScriptUnit.size() * 2);
    for (std::size_t n = 0; out.size() < size; ++n)
        appendUnit(out, kScriptUnit, n);
    out.resize(size);
    return out;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc != 2) {
        std::fprintf(stderr, "usage: geninputs OUTDIR\n");
        return 2;
    }
    const std::filesystem::path dir = argv[1];
    std::filesystem::create_directories(dir);
    const bool ok = writeFile(dir / "c-50mb.c", cSource(50 * MiB)) &&
                    writeFile(dir / "lines-2m.txt", shortLines(2'000'000)) &&
                    writeFile(dir / "oneline-10mb.min.js", oneLine(10 * MiB));
    if (!ok) {
        std::perror(argv[1]);
        return 1;
    }
    return 0;
}
