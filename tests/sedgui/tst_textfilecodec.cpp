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

QByteArray utf16(const QString &text, QStringConverter::Encoding encoding)
{
    QStringEncoder encoder(encoding, QStringConverter::Flag::WriteBom);
    return encoder.encode(text);
}

QByteArray eolBytes(LineEnding ending)
{
    return ending == LineEnding::CRLF ? "\r\n" : ending == LineEnding::CR ? "\r" : "\n";
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
    void insertedLineChangesOnlyThatLine_data() { roundTrip_data(); }
    void insertedLineChangesOnlyThatLine();
    void guessedEncodingIsNamed_data();
    void guessedEncodingIsNamed();
    void convertAndEncode_data();
    void convertAndEncode();
    void unencodableCharacterIsRefused_data();
    void unencodableCharacterIsRefused();
    void decodeAs_data();
    void decodeAs();
};

void TstTextFileCodec::strictUtf8_data()
{
    QTest::addColumn<QByteArray>("sequence");
    QTest::addColumn<bool>("valid");

    QTest::newRow("U+0080") << QByteArray("\xC2\x80") << true;
    QTest::newRow("U+D7FF") << QByteArray("\xED\x9F\xBF") << true;
    QTest::newRow("U+FFFF") << QByteArray("\xEF\xBF\xBF") << true;
    QTest::newRow("U+10FFFF") << QByteArray("\xF4\x8F\xBF\xBF") << true;
    QTest::newRow("overlong 2 bytes") << QByteArray("\xC0\x80") << false;
    QTest::newRow("overlong 3 bytes") << QByteArray("\xE0\x80\xAF") << false;
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

    const QString text = QStringLiteral("h\u00e9llo w\u00f6rld\n\u20ac \u4e2d\u6587 \U0001F600\n");
    const QByteArray bom = "\xEF\xBB\xBF";
    const auto LF = LineEnding::LF;

    QTest::newRow("utf-8") << text.toUtf8() << QByteArray("UTF-8") << false << LF << false;
    QTest::newRow("utf-8 with bom")
        << bom + text.toUtf8() << QByteArray("UTF-8") << false << LF << false;
    QTest::newRow("utf-16le with bom")
        << utf16(text, QStringConverter::Utf16LE) << QByteArray("UTF-16LE") << false << LF << false;
    QTest::newRow("utf-16be with bom")
        << utf16(text, QStringConverter::Utf16BE) << QByteArray("UTF-16BE") << false << LF << false;
    QTest::newRow("utf-32le with bom")
        << utf16(text, QStringConverter::Utf32LE) << QByteArray("UTF-32LE") << false << LF << false;
    QTest::newRow("windows-1252") << Windows1252Text << QByteArray("WINDOWS-1252") << false << LF
                                  << false;
    QTest::newRow("shift_jis") << ShiftJisText << QByteArray("SHIFT_JIS") << false << LF << false;
    QTest::newRow("gb18030") << Gb18030Text << QByteArray("GB18030") << false << LF << false;
    // Mostly UTF-8, with a stray byte, an overlong, a surrogate and a value
    // above U+10FFFF: a damaged UTF-8 file, kept as bytes.
    QTest::newRow("utf-8 with invalid bytes")
        << QByteArray("h\xC3\xA9llo w\xC3\xB6rld \xE2\x82\xAC\xE2\x82\xAC \xE4\xB8\xAD\xE6\x96\x87 "
                      "\xC3\xB1\xC3\xBC\xC3\xB6\xC3\xA4\xC3\x9F\xC3\xA7\n"
                      "\xFF \xC0\x80 \xED\xA0\x80 \xF4\x90\x80\x80\n")
        << QByteArray("UTF-8") << true << LF << false;
    QTest::newRow("bytes no table maps")
        << QByteArray("abc\x81\x8D\x8F\x90\n") << QByteArray("UTF-8") << true << LF << false;
    QTest::newRow("utf-8 bom then invalid")
        << bom + QByteArray("ok\xFF\n") << QByteArray("UTF-8") << true << LF << false;
    QTest::newRow("utf-16le bom, odd length")
        << QByteArray("\xFF\xFE\x61\x00\x62") << QByteArray("UTF-8") << true << LF << false;
    QTest::newRow("nul bytes") << QByteArray("a\0b\0\nc\n", 7) << QByteArray("UTF-8") << false << LF
                               << false;
    QTest::newRow("nul and invalid bytes")
        << QByteArray("\0\xFF\xFE\x01\n", 5) << QByteArray("UTF-8") << true << LF << false;
    QTest::newRow("crlf") << QByteArray("one\r\ntwo\r\n") << QByteArray("UTF-8") << false
                          << LineEnding::CRLF << false;
    QTest::newRow("cr") << QByteArray("one\rtwo\r") << QByteArray("UTF-8") << false
                        << LineEnding::CR << false;
    QTest::newRow("mixed, mostly crlf") << QByteArray("a\r\nb\nc\r\nd\re\r\n")
                                        << QByteArray("UTF-8") << false << LineEnding::CRLF << true;
    QTest::newRow("mixed, mostly lf")
        << QByteArray("a\nb\nc\rd\n") << QByteArray("UTF-8") << false << LF << true;
    // Long enough that the counts run over many blocks of words; one line
    // decides which ending wins.
    QTest::newRow("one more lf than crlf")
        << QByteArray("x\r\n").repeated(3000) + QByteArray("y\n").repeated(3001)
        << QByteArray("UTF-8") << false << LF << true;
    QTest::newRow("one more crlf than lf")
        << QByteArray("y\n").repeated(3000) + QByteArray("x\r\n").repeated(3001)
        << QByteArray("UTF-8") << false << LineEnding::CRLF << true;
    QTest::newRow("crlf in utf-16be")
        << utf16(QStringLiteral("x\r\ny\r\n"), QStringConverter::Utf16BE) << QByteArray("UTF-16BE")
        << false << LineEnding::CRLF << false;
    QTest::newRow("no final newline")
        << QByteArray("first\nlast") << QByteArray("UTF-8") << false << LF << false;
    QTest::newRow("empty file") << QByteArray() << QByteArray("UTF-8") << false << LF << false;
    QTest::newRow("bom only") << bom << QByteArray("UTF-8") << false << LF << false;
    QTest::newRow("utf-16le bom only")
        << QByteArray("\xFF\xFE") << QByteArray("UTF-16LE") << false << LF << false;
    QByteArray longLine(5 * 1024 * 1024, 'x');
    longLine.replace(1000, 3, "\xE2\x82\xAC");
    QTest::newRow("one 5 MB line") << longLine << QByteArray("UTF-8") << false << LF << false;
}

void TstTextFileCodec::roundTrip()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, raw);
    QFETCH(LineEnding, ending);
    QFETCH(bool, mixed);

    const DecodedText decoded = TextFileCodec::decode(bytes);
    QCOMPARE(decoded.format.encoding, encoding);
    QCOMPARE(decoded.rawBytes, raw);
    if (raw)
        QVERIFY(!decoded.notice.isEmpty());
    else if (encoding == "UTF-8")
        QCOMPARE(decoded.notice, QString());
    QCOMPARE(decoded.format.lineEnding, ending);
    QCOMPARE(decoded.mixedLineEndings, mixed);
    if (!raw)
        QVERIFY(TextFileCodec::isValidUtf8(decoded.utf8.constData(), decoded.utf8.size()));

    QByteArray saved;
    QString error;
    QVERIFY2(TextFileCodec::encode(decoded.utf8, decoded.format, &saved, &error),
             qPrintable(error));
    QCOMPARE(saved.size(), bytes.size());
    QVERIFY(saved == bytes);
}

void TstTextFileCodec::insertedLineChangesOnlyThatLine()
{
    QFETCH(QByteArray, bytes);

    const DecodedText decoded = TextFileCodec::decode(bytes);
    const QByteArray line = "a typed line" + eolBytes(decoded.format.lineEnding);
    QByteArray edited = decoded.utf8;
    const qsizetype firstBreak = edited.indexOf('\n');
    edited.insert(firstBreak < 0 ? 0 : firstBreak + 1, line);

    QByteArray saved;
    QString error;
    QVERIFY2(TextFileCodec::encode(edited, decoded.format, &saved, &error), qPrintable(error));

    // The saved bytes are the old ones with one run inserted, and that run
    // reads back as the typed line.
    const qsizetype grown = saved.size() - bytes.size();
    QVERIFY(grown > 0);
    qsizetype prefix = 0;
    while (prefix < bytes.size() && saved.at(prefix) == bytes.at(prefix))
        ++prefix;
    // Where the run starts: at a code unit boundary, at or before the first
    // differing byte (a unit may share leading bytes with the one it displaced).
    const int unit = decoded.format.encoding.startsWith("UTF-32")   ? 4
                     : decoded.format.encoding.startsWith("UTF-16") ? 2
                                                                    : 1;
    qsizetype start = prefix - prefix % unit;
    while (start > 0 && saved.mid(start + grown) != bytes.mid(start))
        start -= unit;
    QVERIFY(saved.left(start) == bytes.left(start));
    QVERIFY(saved.mid(start + grown) == bytes.mid(start));
    DecodedText inserted;
    QVERIFY2(TextFileCodec::decodeAs(saved.mid(start, grown), decoded.format.encoding, &inserted,
                                     &error),
             qPrintable(error));
    QCOMPARE(inserted.utf8, line);
}

void TstTextFileCodec::guessedEncodingIsNamed_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("startsWith");

    QTest::newRow("windows-1252") << Windows1252Text
                                  << QStringLiteral("Caf\u00e9 cr\u00e8me br\u00fbl\u00e9e");
    QTest::newRow("shift_jis") << ShiftJisText << QStringLiteral("\u65e5\u672c\u8a9e\u306e");
    QTest::newRow("gb18030") << Gb18030Text << QStringLiteral("\u8fd9\u662f\u4e00\u4e2a");
    const QString latin = QStringLiteral("Stra\u00dfe und Caf\u00e9\r\n");
    QByteArray utf16le(reinterpret_cast<const char *>(latin.utf16()), latin.size() * 2);
    QTest::newRow("utf-16le without bom") << utf16le.repeated(3) << latin;
    QByteArray utf16be = utf16le;
    for (qsizetype i = 0; i < utf16be.size(); i += 2)
        std::swap(utf16be[i], utf16be[i + 1]);
    QTest::newRow("utf-16be without bom") << utf16be << latin;
}

void TstTextFileCodec::guessedEncodingIsNamed()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, startsWith);

    const DecodedText decoded = TextFileCodec::decode(bytes);
    QVERIFY(!decoded.rawBytes);
    QVERIFY2(QString::fromUtf8(decoded.utf8).startsWith(startsWith),
             decoded.utf8.left(40).constData());
    QVERIFY(decoded.notice.contains(QLatin1String(decoded.format.encoding)));
    QByteArray saved;
    QString error;
    QVERIFY2(TextFileCodec::encode(decoded.utf8, decoded.format, &saved, &error),
             qPrintable(error));
    QVERIFY(saved == bytes);
}

void TstTextFileCodec::convertAndEncode_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<LineEnding>("to");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("bom");
    QTest::addColumn<QByteArray>("expected");

    const QByteArray mixed = "a\nb\r\nc\rd";
    QTest::newRow("mixed to lf") << mixed << LineEnding::LF << QByteArray("UTF-8") << false
                                 << QByteArray("a\nb\nc\nd");
    QTest::newRow("mixed to crlf") << mixed << LineEnding::CRLF << QByteArray("UTF-8") << false
                                   << QByteArray("a\r\nb\r\nc\r\nd");
    QTest::newRow("mixed to cr") << mixed << LineEnding::CR << QByteArray("UTF-8") << false
                                 << QByteArray("a\rb\rc\rd");
    QTest::newRow("cr cr lf stays two lines")
        << QByteArray("x\r\r\ny") << LineEnding::LF << QByteArray("UTF-8") << false
        << QByteArray("x\n\ny");
    QTest::newRow("utf-8 with bom")
        << QByteArray("\xC3\xA9\n") << LineEnding::LF << QByteArray("utf8") << true
        << QByteArray("\xEF\xBB\xBF\xC3\xA9\n");
    QTest::newRow("utf-16le, bom, crlf")
        << QByteArray("\xC3\xA9\n") << LineEnding::CRLF << QByteArray("UTF-16LE") << true
        << QByteArray("\xFF\xFE\xE9\x00\x0D\x00\x0A\x00", 8);
    QTest::newRow("utf-16be surrogate pair")
        << QByteArray("\xF0\x9D\x84\x9E") << LineEnding::LF << QByteArray("UTF-16BE") << false
        << QByteArray("\xD8\x34\xDD\x1E");
    QTest::newRow("utf-32le") << QByteArray("\xF0\x9D\x84\x9E") << LineEnding::LF
                              << QByteArray("UTF-32LE") << false
                              << QByteArray("\x1E\xD1\x01\x00", 4);
    QTest::newRow("windows-1252, crlf")
        << QByteArray("\xE2\x82\xAC 5\n") << LineEnding::CRLF << QByteArray("cp1252") << false
        << QByteArray("\x80 5\r\n");
    QTest::newRow("iso-8859-15") << QByteArray("\xE2\x82\xAC") << LineEnding::LF
                                 << QByteArray("ISO-8859-15") << false << QByteArray("\xA4");
    QTest::newRow("koi8-r") << QByteArray("\xD0\x9F\xD1\x80\xD0\xB8") << LineEnding::LF
                            << QByteArray("KOI8-R") << false << QByteArray("\xF0\xD2\xC9");
    QTest::newRow("shift_jis, cr")
        << QByteArray("\xE6\x97\xA5\xE6\x9C\xAC\n") << LineEnding::CR << QByteArray("sjis") << false
        << QByteArray("\x93\xFA\x96\x7B\r");
    // A stateful encoding ends by shifting back to ASCII.
    QTest::newRow("iso-2022-jp") << QByteArray("\xE6\x97\xA5\xE6\x9C\xAC") << LineEnding::LF
                                 << QByteArray("ISO-2022-JP") << false
                                 << QByteArray::fromHex("1b2442467c4b5c1b2842");
    QTest::newRow("gb18030") << QByteArray("\xE4\xB8\xAD\xE6\x96\x87") << LineEnding::LF
                             << QByteArray("GB18030") << false << QByteArray("\xD6\xD0\xCE\xC4");
}

void TstTextFileCodec::convertAndEncode()
{
    QFETCH(QByteArray, utf8);
    QFETCH(LineEnding, to);
    QFETCH(QByteArray, encoding);
    QFETCH(bool, bom);
    QFETCH(QByteArray, expected);

    TextFormat format;
    format.encoding = encoding;
    format.bom = bom;
    format.lineEnding = to;
    QByteArray out;
    QString error;
    QVERIFY2(
        TextFileCodec::encode(TextFileCodec::convertLineEndings(utf8, to), format, &out, &error),
        qPrintable(error));
    QCOMPARE(out.toHex(' '), expected.toHex(' '));
}

void TstTextFileCodec::unencodableCharacterIsRefused_data()
{
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<QString>("message");

    QTest::newRow("euro in latin-1")
        << QByteArray("a\nb\n\xE2\x82\xAC\n") << QByteArray("ISO-8859-1")
        << QStringLiteral("'\u20ac' on line 3 cannot be saved in "
                          "ISO-8859-1.");
    QTest::newRow("han in windows-1252, crlf lines")
        << QByteArray("a\r\nb\r\n\xE4\xB8\xAD") << QByteArray("WINDOWS-1252")
        << QStringLiteral("'\u4e2d' on line 3 cannot be saved in WINDOWS-1252.");
    QTest::newRow("euro in shift_jis, cr lines")
        << QByteArray("\xE6\x97\xA5\r\r\xE2\x82\xAC") << QByteArray("SHIFT_JIS")
        << QStringLiteral("'\u20ac' on line 3 cannot be saved in SHIFT_JIS.");
    // The table writes a backslash as 0x5C, which reads back as a yen sign.
    QTest::newRow("backslash in shift_jis")
        << QByteArray("ok\npath\\file") << QByteArray("SHIFT_JIS")
        << QStringLiteral("'\\' on line 2 cannot be saved in SHIFT_JIS.");
    QTest::newRow("zero-width space is named by code point")
        << QByteArray("x\xE2\x80\x8B") << QByteArray("WINDOWS-1252")
        << QStringLiteral("U+200B on line 1 cannot be saved in WINDOWS-1252.");
    QTest::newRow("raw byte into utf-16") << QByteArray("ok\n\xFF") << QByteArray("UTF-16LE")
                                          << QStringLiteral("The byte 0xFF on line 2");
    QTest::newRow("unknown encoding") << QByteArray("x") << QByteArray("NO-SUCH-CODE")
                                      << QStringLiteral("Unknown encoding: NO-SUCH-CODE");
}

void TstTextFileCodec::unencodableCharacterIsRefused()
{
    QFETCH(QByteArray, utf8);
    QFETCH(QByteArray, encoding);
    QFETCH(QString, message);

    TextFormat format;
    format.encoding = encoding;
    QByteArray out = "untouched";
    QString error;
    QVERIFY(!TextFileCodec::encode(utf8, format, &out, &error));
    QVERIFY2(error.contains(message), qPrintable(error));
    QCOMPARE(out, QByteArray("untouched"));
}

void TstTextFileCodec::decodeAs_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QByteArray>("encoding");
    QTest::addColumn<bool>("ok");
    QTest::addColumn<QByteArray>("utf8");
    QTest::addColumn<bool>("bom");

    QTest::newRow("latin bytes as iso-8859-5")
        << QByteArray("\xBF\xE0\xD8") << QByteArray("iso8859-5") << true
        << QByteArray("\xD0\x9F\xD1\x80\xD0\xB8") << false;
    QTest::newRow("utf-8 as windows-1252") << QByteArray("\xC3\xA9") << QByteArray("WINDOWS-1252")
                                           << true << QByteArray("\xC3\x83\xC2\xA9") << false;
    QTest::newRow("utf-16le by its ambiguous name")
        << QByteArray("h\0i\0", 4) << QByteArray("utf-16") << true << QByteArray("hi") << false;
    QTest::newRow("utf-8 bom kept as bom")
        << QByteArray("\xEF\xBB\xBFx") << QByteArray("UTF-8") << true << QByteArray("x") << true;
    QTest::newRow("invalid utf-8")
        << QByteArray("\xFFx") << QByteArray("UTF-8") << false << QByteArray() << false;
    QTest::newRow("odd length utf-16")
        << QByteArray("abc") << QByteArray("UTF-16BE") << false << QByteArray() << false;
    // Two codes for one character: the file could not be written back as it is.
    QTest::newRow("cp932 duplicate code")
        << QByteArray("\xED\x40") << QByteArray("CP932") << false << QByteArray() << false;
    QTest::newRow("truncated shift_jis")
        << QByteArray("\x93") << QByteArray("SHIFT_JIS") << false << QByteArray() << false;
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
    QByteArray back;
    QVERIFY(TextFileCodec::encode(decoded.utf8, decoded.format, &back, &error));
    QCOMPARE(back, bytes);
}

QTEST_GUILESS_MAIN(TstTextFileCodec)
#include "tst_textfilecodec.moc"
