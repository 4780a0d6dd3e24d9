#include "textfilecodec.h"

#include <QStringEncoder>
#include <QTest>

using namespace koru::sedgui;

Q_DECLARE_METATYPE(koru::sedgui::LineEnding)

namespace {

// Written by another program (iconv), so the expected bytes do not come
// from the code under test.
const QByteArray ShiftJisText = QByteArray::fromHex(
    "93fa967b8cea82cc8365834c8358836782c582b7814282b182ea82cd8356837483674a495382c58f9182a982ea82bd"
    "837483408343838b82c582b781420a8abf8e9a82c682d082e782aa82c882c6834a835e834a836982aa8adc82dc82ea"
    "82c482a282dc82b781420a938c8b9e937382cc93568b4382cd90b082ea82c582b781420a");
const QByteArray Gb18030Text = QByteArray::fromHex(
    "d5e2cac7d2bbb8f6d3c3d6d0cec4d0b4b5c4cec4b1becec4bcfea1a30abdf1ccecb1b1bea9b5c4ccecc6f8badcbac3"
    "a3acced2c3c7c8a5b9abd4b0c9a2b2bdb0c9a1a30ababad7d6b1e0c2ebb2e2cad4a1a30a");
const QByteArray Windows1252Text = QByteArray::fromHex(
    "436166e9206372e86d65206272fb6ce9652c206e61ef7665206661e76164652097209371756f746564942074657874"
    "20"
    "636f737473203520802e0adc6265722073747261df652c20676172e76f6e2c2064e96ae02076752e0a");

constexpr auto LF = LineEnding::LF;
constexpr auto CRLF = LineEnding::CRLF;
constexpr auto CR = LineEnding::CR;

QByteArray withBom(const QString &text, QStringConverter::Encoding encoding)
{
    return QStringEncoder(encoding, QStringConverter::Flag::WriteBom).encode(text);
}

// A guessed encoding is checked by the start of the decoded text.
void roundTripRow(const char *name, const QByteArray &bytes, const char *encoding = "UTF-8",
                  LineEnding ending = LF, bool mixed = false, bool raw = false,
                  const QString &startsWith = {})
{
    QTest::newRow(name) << bytes << QByteArray(encoding) << raw << ending << mixed << startsWith;
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
    void strictUtf8_data();
    void strictUtf8();
    void roundTrip_data();
    void roundTrip();
    void convertAndEncode_data();
    void convertAndEncode();
    void decodeAs_data();
    void decodeAs();
};

void TstTextFileCodec::strictUtf8_data()
{
    QTest::addColumn<QByteArray>("sequence");
    QTest::addColumn<bool>("valid");
    QTest::newRow("U+0080") << QByteArray("\xC2\x80") << true;
    QTest::newRow("U+10FFFF") << QByteArray("\xF4\x8F\xBF\xBF") << true;
    QTest::newRow("overlong 2 bytes") << QByteArray("\xC0\x80") << false;
    QTest::newRow("overlong 4 bytes") << QByteArray("\xF0\x8F\xBF\xBF") << false;
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << false;
    QTest::newRow("above U+10FFFF") << QByteArray("\xF4\x90\x80\x80") << false;
    QTest::newRow("lone continuation") << QByteArray("\x80") << false;
    QTest::newRow("cut short") << QByteArray("\xE2\x82") << false;
}

void TstTextFileCodec::strictUtf8()
{
    QFETCH(QByteArray, sequence);
    QFETCH(bool, valid);
    // After and between ASCII runs long enough for the 16-byte fast path.
    const QByteArray ascii(21, 'a');
    for (const QByteArray &text :
         QList<QByteArray>{sequence, ascii + sequence, ascii + sequence + ascii,
                           sequence + ascii + QByteArray("\xC3\xA9") + ascii}) {
        QCOMPARE(TextFileCodec::isValidUtf8(text.constData(), text.size()), valid);
        const DecodedText decoded = TextFileCodec::decode(text);
        QCOMPARE(decoded.format.encoding == "UTF-8" && !decoded.rawBytes, valid);
    }
}

void TstTextFileCodec::roundTrip_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("raw");
    QTest::addColumn<LineEnding>("ending");
    QTest::addColumn<bool>("mixed");
    QTest::addColumn<QString>("startsWith");

    const QString text = QStringLiteral("h\u00e9llo w\u00f6rld\n\u20ac \u4e2d\u6587 \U0001F600\n");
    const QByteArray bom = "\xEF\xBB\xBF";
    roundTripRow("utf-8", text.toUtf8());
    roundTripRow("utf-8 with bom", bom + text.toUtf8());
    roundTripRow("utf-16le with bom", withBom(text, QStringConverter::Utf16LE), "UTF-16LE");
    roundTripRow("utf-16be with bom", withBom(text, QStringConverter::Utf16BE), "UTF-16BE");
    roundTripRow("windows-1252", Windows1252Text, "WINDOWS-1252", LF, false, false,
                 QStringLiteral("Caf\u00e9 cr\u00e8me br\u00fbl\u00e9e"));
    roundTripRow("shift_jis", ShiftJisText, "SHIFT_JIS", LF, false, false,
                 QStringLiteral("\u65e5\u672c\u8a9e\u306e"));
    roundTripRow("gb18030", Gb18030Text, "GB18030", LF, false, false,
                 QStringLiteral("\u8fd9\u662f\u4e00\u4e2a"));
    const QString latin = QStringLiteral("Stra\u00dfe und Caf\u00e9\r\n");
    QByteArray utf16le(reinterpret_cast<const char *>(latin.utf16()), latin.size() * 2);
    roundTripRow("utf-16le without bom", utf16le.repeated(3), "UTF-16LE", CRLF, false, false,
                 latin);
    // Mostly UTF-8, with a stray byte, an overlong, a surrogate and a value
    // above U+10FFFF: a damaged UTF-8 file, kept as bytes.
    roundTripRow("utf-8 with invalid bytes",
                 "h\xC3\xA9llo w\xC3\xB6rld \xE2\x82\xAC\xE2\x82\xAC \xE4\xB8\xAD\xE6\x96\x87 "
                 "\xC3\xB1\xC3\xBC\xC3\xB6\xC3\xA4\xC3\x9F\xC3\xA7\n"
                 "\xFF \xC0\x80 \xED\xA0\x80 \xF4\x90\x80\x80\n",
                 "UTF-8", LF, false, true);
    roundTripRow("utf-8 bom then invalid", bom + "ok\xFF\n", "UTF-8", LF, false, true);
    roundTripRow("utf-16le bom, odd length", "\xFF\xFE\x61\x00\x62", "UTF-8", LF, false, true);
    roundTripRow("nul bytes", QByteArray("a\0b\0\nc\n", 7));
    roundTripRow("crlf", "one\r\ntwo\r\n", "UTF-8", CRLF);
    roundTripRow("cr", "one\rtwo\r", "UTF-8", CR);
    roundTripRow("mixed, mostly crlf", "a\r\nb\nc\r\nd\re\r\n", "UTF-8", CRLF, true);
    // Long enough that the counts run over many blocks of words; one line
    // decides which ending wins.
    roundTripRow("one more lf than crlf",
                 QByteArray("x\r\n").repeated(3000) + QByteArray("y\n").repeated(3001), "UTF-8", LF,
                 true);
    roundTripRow("no final newline", "first\nlast");
    roundTripRow("empty file", QByteArray());
    roundTripRow("bom only", bom);
    QByteArray longLine(5 * 1024 * 1024, 'x');
    longLine.replace(1000, 3, "\xE2\x82\xAC");
    roundTripRow("one 5 MB line", longLine);
}

void TstTextFileCodec::roundTrip()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, raw);
    QFETCH(LineEnding, ending);
    QFETCH(bool, mixed);
    QFETCH(QString, startsWith);
    const DecodedText decoded = TextFileCodec::decode(bytes);
    QCOMPARE(decoded.format.encoding, encoding);
    QCOMPARE(decoded.rawBytes, raw);
    QCOMPARE(decoded.format.lineEnding, ending);
    QCOMPARE(decoded.mixedLineEndings, mixed);
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

    QByteArray saved = encodeOrFail(decoded.utf8, decoded.format);
    QCOMPARE(saved.size(), bytes.size());
    QVERIFY(saved == bytes);

    // A typed line changes only its own bytes and reads back as typed.
    QByteArray edited = decoded.utf8;
    const qsizetype firstBreak = edited.indexOf('\n');
    edited.insert(firstBreak < 0 ? 0 : firstBreak + 1,
                  TextFileCodec::convertLineEndings("a typed line\n", ending));
    saved = encodeOrFail(edited, decoded.format);
    qsizetype same = 0;
    while (same < bytes.size() && saved.at(same) == bytes.at(same))
        ++same;
    qsizetype tail = 0;
    while (tail < bytes.size() - same &&
           saved.at(saved.size() - 1 - tail) == bytes.at(bytes.size() - 1 - tail))
        ++tail;
    QVERIFY(saved.size() > bytes.size());
    QCOMPARE(same + tail, bytes.size());
    DecodedText reread;
    QString error;
    if (decoded.rawBytes)
        reread.utf8 = saved.mid(decoded.format.bom ? 3 : 0);
    else
        QVERIFY2(TextFileCodec::decodeAs(saved, decoded.format.encoding, &reread, &error),
                 qPrintable(error));
    QVERIFY(reread.utf8 == edited);
}

void TstTextFileCodec::convertAndEncode_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<LineEnding>("to");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("bom");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QString>("refusal");
    const auto row = [](const char *name, const QByteArray &utf8, LineEnding to,
                        const char *encoding, bool bom, const QByteArray &expected,
                        const QString &refusal = {}) {
        QTest::newRow(name) << utf8 << to << QByteArray(encoding) << bom << expected << refusal;
    };

    const QByteArray mixed = "a\nb\r\nc\rd";
    row("mixed to lf", mixed, LF, "UTF-8", false, "a\nb\nc\nd");
    row("mixed to crlf", mixed, CRLF, "UTF-8", false, "a\r\nb\r\nc\r\nd");
    row("mixed to cr", mixed, CR, "UTF-8", false, "a\rb\rc\rd");
    row("cr cr lf stays two lines", "x\r\r\ny", LF, "UTF-8", false, "x\n\ny");
    row("utf-8 with bom", "\xC3\xA9\n", LF, "utf8", true, "\xEF\xBB\xBF\xC3\xA9\n");
    row("utf-16le, bom, crlf", "\xC3\xA9\n", CRLF, "UTF-16LE", true,
        QByteArray("\xFF\xFE\xE9\x00\x0D\x00\x0A\x00", 8));
    row("utf-16be surrogate pair", "\xF0\x9D\x84\x9E", LF, "UTF-16BE", false, "\xD8\x34\xDD\x1E");
    row("utf-32le", "\xF0\x9D\x84\x9E", LF, "UTF-32LE", false, QByteArray("\x1E\xD1\x01\x00", 4));
    row("windows-1252, crlf", "\xE2\x82\xAC 5\n", CRLF, "cp1252", false, "\x80 5\r\n");
    row("shift_jis, cr", "\xE6\x97\xA5\xE6\x9C\xAC\n", CR, "sjis", false, "\x93\xFA\x96\x7B\r");
    // A stateful encoding ends by shifting back to ASCII.
    row("iso-2022-jp", "\xE6\x97\xA5\xE6\x9C\xAC", LF, "ISO-2022-JP", false,
        QByteArray::fromHex("1b2442467c4b5c1b2842"));
    row("gb18030", "\xE4\xB8\xAD\xE6\x96\x87", LF, "GB18030", false, "\xD6\xD0\xCE\xC4");
    // Characters the encoding cannot hold: refused, never replaced.
    row("euro in latin-1", "a\nb\n\xE2\x82\xAC\n", LF, "ISO-8859-1", false, {},
        QStringLiteral("'\u20ac' on line 3 cannot be saved in ISO-8859-1."));
    row("han in windows-1252, crlf lines", "a\r\nb\r\n\xE4\xB8\xAD", CRLF, "WINDOWS-1252", false,
        {}, QStringLiteral("'\u4e2d' on line 3 cannot be saved in WINDOWS-1252."));
    row("euro in shift_jis, cr lines", "\xE6\x97\xA5\r\r\xE2\x82\xAC", CR, "SHIFT_JIS", false, {},
        QStringLiteral("'\u20ac' on line 3 cannot be saved in SHIFT_JIS."));
    // The table writes a backslash as 0x5C, which reads back as a yen sign.
    row("backslash in shift_jis", "ok\npath\\file", LF, "SHIFT_JIS", false, {},
        QStringLiteral("'\\' on line 2 cannot be saved in SHIFT_JIS."));
    row("zero-width space is named by code point", "x\xE2\x80\x8B", LF, "WINDOWS-1252", false, {},
        QStringLiteral("U+200B on line 1 cannot be saved in WINDOWS-1252."));
    row("raw byte into utf-16", "ok\n\xFF", LF, "UTF-16LE", false, {},
        QStringLiteral("The byte 0xFF on line 2"));
    row("unknown encoding", "x", LF, "NO-SUCH-CODE", false, {},
        QStringLiteral("Unknown encoding: NO-SUCH-CODE"));
}

void TstTextFileCodec::convertAndEncode()
{
    QFETCH(QByteArray, utf8);
    QFETCH(LineEnding, to);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, bom);
    QFETCH(QByteArray, expected);
    QFETCH(QString, refusal);
    TextFormat format;
    format.encoding = encoding;
    format.bom = bom;
    format.lineEnding = to;
    QByteArray out = "untouched";
    QString error;
    const bool ok =
        TextFileCodec::encode(TextFileCodec::convertLineEndings(utf8, to), format, &out, &error);
    QVERIFY2(ok == refusal.isEmpty(), qPrintable(error));
    QVERIFY2(error.contains(refusal), qPrintable(error));
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
    row("invalid utf-8", "\xFFx", "UTF-8", false);
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
