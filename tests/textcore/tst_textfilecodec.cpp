#include "textfilecodec.h"

#include <QStringEncoder>
#include <QTest>

using namespace koru::sedgui;
using namespace Qt::StringLiterals;

Q_DECLARE_METATYPE(koru::sedgui::LineEnding)

namespace {

// Written by another program (iconv), so the expected bytes do not come
// from the code under test.
const QByteArray ShiftJisText = QByteArray::fromHex(
    "93fa967b8cea82cc8365834c8358836782c582b781428abf8e9a82c682d082e782aa82c882c6834a835e834a836982"
    "aa8adc82dc82ea82c482a282dc82b781420a");
const QByteArray Windows1252Text =
    QByteArray::fromHex("436166e9206372e86d65206272fb6ce9652c206e61ef7665206661e7616465209720937175"
                        "6f74656494207465787420"
                        "636f737473203520802e0a");

constexpr auto LF = LineEnding::LF;
constexpr auto CRLF = LineEnding::CRLF;
constexpr auto CR = LineEnding::CR;

QByteArray withBom(const QString &text, QStringConverter::Encoding encoding)
{
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom).encode(text);
}

// Flags: r kept as raw bytes, m mixed line endings. A guessed encoding is
// checked by the start of the decoded text.
void roundTripRow(const char *name, const QByteArray &bytes, const char *encoding = "UTF-8",
                  LineEnding ending = LF, const char *flags = "", const QString &startsWith = {})
{
    QTest::newRow(name) << bytes << QByteArray(encoding) << ending << QByteArray(flags)
                        << startsWith;
}

QByteArray encodeOrFail(const QByteArray &utf8, const TextFormat &format)
{
    QByteArray saved;
    QString error;
    if (!TextFileCodec::encode(utf8, format, &saved, &error))
        qWarning("encode failed: %s", qPrintable(error));
    return saved;
}

} // namespace

class TstTextFileCodec : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void convertAndEncode_data();
    void convertAndEncode();
    void decodeAs_data();
    void decodeAs();
};

void TstTextFileCodec::roundTrip_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<LineEnding>("ending");
    QTest::addColumn<QByteArray>("flags");
    QTest::addColumn<QString>("startsWith");

    const QString text = QStringLiteral("h\u00e9llo w\u00f6rld\n\u20ac \u4e2d\u6587 \U0001F600\n");
    const QByteArray bom = "\xEF\xBB\xBF";
    roundTripRow("utf-8", text.toUtf8());
    roundTripRow("utf-8 with bom", bom + text.toUtf8());
    roundTripRow("utf-16le with bom", withBom(text, QStringConverter::Utf16LE), "UTF-16LE");
    roundTripRow("utf-16be with bom", withBom(text, QStringConverter::Utf16BE), "UTF-16BE");
    roundTripRow("windows-1252", Windows1252Text, "WINDOWS-1252", LF, "",
                 u"Caf\u00e9 cr\u00e8me"_s);
    roundTripRow("shift_jis", ShiftJisText, "SHIFT_JIS", LF, "", u"\u65e5\u672c\u8a9e\u306e"_s);
    const QString latin = QStringLiteral("Stra\u00dfe und Caf\u00e9\r\n");
    QByteArray utf16le(reinterpret_cast<const char *>(latin.utf16()), latin.size() * 2);
    roundTripRow("utf-16le without bom", utf16le.repeated(3), "UTF-16LE", CRLF, "", latin);
    // A damaged UTF-8 file (more valid sequences than bad bytes) is kept as bytes.
    roundTripRow("utf-8 with invalid bytes", "h\xC3\xA9llo w\xC3\xB6rld \xFF\n", "UTF-8", LF, "r");
    roundTripRow("utf-8 bom then invalid", bom + "ok\xFF\n", "UTF-8", LF, "r");
    roundTripRow("utf-16le bom, odd length", "\xFF\xFE\x61\x00\x62", "UTF-8", LF, "r");
    roundTripRow("cr", "one\rtwo\r", "UTF-8", CR);
    roundTripRow("mixed, mostly crlf", "a\r\nb\nc\r\nd\re\r\n", "UTF-8", CRLF, "m");
    // Long enough that the counts run over many blocks of words; one line
    // decides which ending wins.
    roundTripRow("one more lf than crlf",
                 QByteArray("x\r\n").repeated(3000) + QByteArray("y\n").repeated(3001), "UTF-8", LF,
                 "m");
    roundTripRow("empty file", QByteArray());
    roundTripRow("bom only", bom);
}

void TstTextFileCodec::roundTrip()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, encoding);
    QFETCH(LineEnding, ending);
    QFETCH(QByteArray, flags);
    QFETCH(QString, startsWith);
    const bool raw = flags.contains('r');
    const DecodedText decoded = TextFileCodec::decode(bytes);
    QCOMPARE(decoded.format.encoding, encoding);
    QCOMPARE(decoded.rawBytes, raw);
    QCOMPARE(decoded.format.lineEnding, ending);
    QCOMPARE(decoded.mixedLineEndings, flags.contains('m'));
    if (raw)
        QVERIFY(!decoded.notice.isEmpty());
    else if (!startsWith.isEmpty())
        QVERIFY(decoded.notice.contains(QLatin1String(encoding)));
    else if (encoding == "UTF-8")
        QCOMPARE(decoded.notice, QString());
    if (!raw)
        QVERIFY(TextFileCodec::isValidUtf8(decoded.utf8.constData(), decoded.utf8.size()));
    QVERIFY2(QString::fromUtf8(decoded.utf8).startsWith(startsWith),
             decoded.utf8.left(40).constData());

    QCOMPARE(encodeOrFail(decoded.utf8, decoded.format).toHex(' '), bytes.toHex(' '));
}

void TstTextFileCodec::convertAndEncode_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<LineEnding>("to");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("bom");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char *name, LineEnding to, const char *encoding,
                        const QByteArray &utf8, const QByteArray &expected,
                        const char *refusal = "", bool bom = false) {
        QTest::newRow(name) << utf8 << to << QByteArray(encoding) << bom << expected
                            << QString::fromUtf8(refusal);
    };
    // CR CR LF is two line breaks.
    const QByteArray mixed = "a\nb\r\nc\rd\r\r\n";
    row("mixed to lf", LF, "UTF-8", mixed, "a\nb\nc\nd\n\n");
    row("mixed to crlf", CRLF, "UTF-8", mixed, "a\r\nb\r\nc\r\nd\r\n\r\n");
    row("mixed to cr", CR, "UTF-8", mixed, "a\rb\rc\rd\r\r");
    row("utf-8 with bom", LF, "utf8", "\xC3\xA9\n", "\xEF\xBB\xBF\xC3\xA9\n", "", true);
    row("utf-16le, bom, crlf", CRLF, "UTF-16LE", "\xC3\xA9\n",
        QByteArray("\xFF\xFE\xE9\x00\x0D\x00\x0A\x00", 8), "", true);
    row("utf-16be surrogate pair", LF, "UTF-16BE", "\xF0\x9D\x84\x9E", "\xD8\x34\xDD\x1E");
    row("utf-32le", LF, "UTF-32LE", "\xF0\x9D\x84\x9E", QByteArray("\x1E\xD1\x01\x00", 4));
    row("windows-1252, crlf", CRLF, "cp1252", "\xE2\x82\xAC 5\n", "\x80 5\r\n");
    // A stateful encoding ends by shifting back to ASCII.
    row("iso-2022-jp", LF, "ISO-2022-JP", "\xE6\x97\xA5\xE6\x9C\xAC", "\x1B$BF|K\\\x1B(B");
    // Characters the encoding cannot hold: refused, never replaced.
    row("han in windows-1252", CRLF, "WINDOWS-1252", "a\r\nb\r\n\xE4\xB8\xAD", {},
        "'中' on line 3");
    row("euro in shift_jis", CR, "SHIFT_JIS", "\xE6\x97\xA5\r\r\xE2\x82\xAC", {}, "'€' on line 3");
    // The table writes a backslash as 0x5C, which reads back as a yen sign.
    row("backslash in shift_jis", LF, "SHIFT_JIS", "ok\npath\\file", {}, "'\\' on line 2");
    row("zero-width space", LF, "WINDOWS-1252", "x\xE2\x80\x8B", {}, "U+200B on line 1");
    row("raw byte into utf-16", LF, "UTF-16LE", "ok\n\xFF", {}, "The byte 0xFF on line 2");
    row("unknown encoding", LF, "NO-SUCH-CODE", "x", {}, "Unknown encoding: NO-SUCH-CODE");
}

void TstTextFileCodec::convertAndEncode()
{
    QFETCH(QByteArray, utf8);
    QFETCH(LineEnding, to);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, bom);
    QFETCH(QByteArray, expected);
    QFETCH(QString, refusal);
    const TextFormat format{encoding, bom, to};
    QByteArray out = "untouched";
    QString error;
    const bool ok =
        TextFileCodec::encode(TextFileCodec::convertLineEndings(utf8, to), format, &out, &error);
    QVERIFY2(ok == refusal.isEmpty() && error.contains(refusal), qPrintable(error));
    QCOMPARE(out.toHex(' '), (ok ? expected : QByteArray("untouched")).toHex(' '));
}

void TstTextFileCodec::decodeAs_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<bool>("bom");
    const auto row = [](const char *name, const QByteArray &bytes, const char *encoding, bool ok,
                        const QByteArray &utf8 = {}, bool bom = false) {
        QTest::newRow(name) << bytes << QByteArray(encoding) << ok << utf8 << bom;
    };

    row("latin bytes as iso-8859-5", "\xBF\xE0\xD8", "iso8859-5", true, "\xD0\x9F\xD1\x80\xD0\xB8");
    row("utf-16le by its ambiguous name", QByteArray("h\0i\0", 4), "utf-16", true, "hi");
    row("utf-8 bom kept as bom", "\xEF\xBB\xBFx", "UTF-8", true, "x", true);
    // Between an ASCII run long enough for the fast path and more multi-byte text.
    const auto pad = [](const QByteArray &sequence) -> QByteArray {
        return QByteArray(21, 'a') + sequence + "\xC3\xA9" + QByteArray(21, 'a');
    };
    row("U+0080, U+10FFFF", pad("\xC2\x80\xF4\x8F\xBF\xBF"), "UTF-8", true,
        pad("\xC2\x80\xF4\x8F\xBF\xBF"));
    row("lone invalid byte", "\xFFx", "UTF-8", false);
    row("overlong 2 bytes", pad("\xC0\x80"), "UTF-8", false);
    row("overlong 4 bytes", pad("\xF0\x8F\xBF\xBF"), "UTF-8", false);
    row("surrogate", pad("\xED\xA0\x80"), "UTF-8", false);
    row("above U+10FFFF", pad("\xF4\x90\x80\x80"), "UTF-8", false);
    row("lone continuation", pad("\x80"), "UTF-8", false);
    row("cut short at the end", "\xE2\x82", "UTF-8", false);
    row("odd length utf-16", "abc", "UTF-16BE", false);
    // Two codes for one character: the file could not be written back as it is.
    row("cp932 duplicate code", "\xED\x40", "CP932", false);
}

void TstTextFileCodec::decodeAs()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, ok);
    QFETCH(QByteArray, utf8);
    QFETCH(bool, bom);
    DecodedText decoded;
    decoded.utf8 = "untouched";
    QString error;
    QCOMPARE(TextFileCodec::decodeAs(bytes, encoding, &decoded, &error), ok);
    QCOMPARE(error.isEmpty(), ok);
    if (!ok) {
        QCOMPARE(decoded.utf8, QByteArray("untouched"));
        return;
    }
    QCOMPARE(decoded.utf8.toHex(' '), utf8.toHex(' '));
    QCOMPARE(decoded.format.bom, bom);
    QCOMPARE(encodeOrFail(decoded.utf8, decoded.format), bytes);
}

QTEST_GUILESS_MAIN(TstTextFileCodec)
#include "tst_textfilecodec.moc"
