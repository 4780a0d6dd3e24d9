#include "lexers/languagelexers.h"

#include "languages.h"
#include "lexers/rustlexer.h"
#include "lexers/tablelexer.h"

#include <QHash>

#include <Qsci/qscilexeravs.h>
#include <Qsci/qscilexerbash.h>
#include <Qsci/qscilexerbatch.h>
#include <Qsci/qscilexercmake.h>
#include <Qsci/qscilexercoffeescript.h>
#include <Qsci/qscilexercpp.h>
#include <Qsci/qscilexercsharp.h>
#include <Qsci/qscilexercss.h>
#include <Qsci/qscilexerd.h>
#include <Qsci/qscilexerdiff.h>
#include <Qsci/qscilexeredifact.h>
#include <Qsci/qscilexerfortran.h>
#include <Qsci/qscilexerfortran77.h>
#include <Qsci/qscilexerhtml.h>
#include <Qsci/qscilexeridl.h>
#include <Qsci/qscilexerjava.h>
#include <Qsci/qscilexerjavascript.h>
#include <Qsci/qscilexerjson.h>
#include <Qsci/qscilexerlua.h>
#include <Qsci/qscilexermakefile.h>
#include <Qsci/qscilexermarkdown.h>
#include <Qsci/qscilexermatlab.h>
#include <Qsci/qscilexeroctave.h>
#include <Qsci/qscilexerpascal.h>
#include <Qsci/qscilexerperl.h>
#include <Qsci/qscilexerpo.h>
#include <Qsci/qscilexerpostscript.h>
#include <Qsci/qscilexerpov.h>
#include <Qsci/qscilexerproperties.h>
#include <Qsci/qscilexerpython.h>
#include <Qsci/qscilexerruby.h>
#include <Qsci/qscilexerspice.h>
#include <Qsci/qscilexersql.h>
#include <Qsci/qscilexertcl.h>
#include <Qsci/qscilexertex.h>
#include <Qsci/qscilexerverilog.h>
#include <Qsci/qscilexervhdl.h>
#include <Qsci/qscilexerxml.h>
#include <Qsci/qscilexeryaml.h>

namespace koru::sedgui {

namespace {

using LexerMaker = QsciLexer *(*)(const QString &language, QObject *parent);

template<typename Lexer> QsciLexer *make(const QString &, QObject *parent)
{
    return new Lexer(parent);
}

// For the lexers that also colour languages of the table with their keywords.
template<typename Lexer> QsciLexer *makeForTable(const QString &language, QObject *parent)
{
    if (Languages::keywords(language, 1).isEmpty() &&
        Languages::lexerProperties(language).isEmpty())
        return new Lexer(parent);
    return new TableLexer<Lexer>(language, parent);
}

QsciLexer *makeRust(const QString &, QObject *parent)
{
    return new RustLexer(parent);
}

// By the lexer names of Languages::lexer().
const QHash<QString, LexerMaker> &makers()
{
    static const QHash<QString, LexerMaker> byName{
        {QStringLiteral("AVS"), make<QsciLexerAVS>},
        {QStringLiteral("Bash"), makeForTable<QsciLexerBash>},
        {QStringLiteral("Batch"), make<QsciLexerBatch>},
        {QStringLiteral("CMake"), make<QsciLexerCMake>},
        {QStringLiteral("CoffeeScript"), make<QsciLexerCoffeeScript>},
        {QStringLiteral("CPP"), makeForTable<QsciLexerCPP>},
        {QStringLiteral("CSharp"), make<QsciLexerCSharp>},
        {QStringLiteral("CSS"), make<QsciLexerCSS>},
        {QStringLiteral("D"), make<QsciLexerD>},
        {QStringLiteral("Diff"), make<QsciLexerDiff>},
        {QStringLiteral("EDIFACT"), make<QsciLexerEDIFACT>},
        {QStringLiteral("Fortran"), make<QsciLexerFortran>},
        {QStringLiteral("Fortran77"), make<QsciLexerFortran77>},
        {QStringLiteral("HTML"), make<QsciLexerHTML>},
        {QStringLiteral("IDL"), make<QsciLexerIDL>},
        {QStringLiteral("Java"), make<QsciLexerJava>},
        {QStringLiteral("JavaScript"), make<QsciLexerJavaScript>},
        {QStringLiteral("JSON"), make<QsciLexerJSON>},
        {QStringLiteral("Lua"), make<QsciLexerLua>},
        {QStringLiteral("Makefile"), make<QsciLexerMakefile>},
        {QStringLiteral("Markdown"), make<QsciLexerMarkdown>},
        {QStringLiteral("Matlab"), make<QsciLexerMatlab>},
        {QStringLiteral("Octave"), make<QsciLexerOctave>},
        {QStringLiteral("Pascal"), make<QsciLexerPascal>},
        {QStringLiteral("Perl"), make<QsciLexerPerl>},
        {QStringLiteral("PO"), make<QsciLexerPO>},
        {QStringLiteral("PostScript"), make<QsciLexerPostScript>},
        {QStringLiteral("POV"), make<QsciLexerPOV>},
        {QStringLiteral("Properties"), makeForTable<QsciLexerProperties>},
        {QStringLiteral("Python"), makeForTable<QsciLexerPython>},
        {QStringLiteral("Ruby"), make<QsciLexerRuby>},
        {QStringLiteral("Rust"), makeRust},
        {QStringLiteral("Spice"), make<QsciLexerSpice>},
        {QStringLiteral("SQL"), make<QsciLexerSQL>},
        {QStringLiteral("TCL"), make<QsciLexerTCL>},
        {QStringLiteral("TeX"), make<QsciLexerTeX>},
        {QStringLiteral("Verilog"), make<QsciLexerVerilog>},
        {QStringLiteral("VHDL"), make<QsciLexerVHDL>},
        {QStringLiteral("XML"), make<QsciLexerXML>},
        {QStringLiteral("YAML"), make<QsciLexerYAML>},
    };
    return byName;
}

} // namespace

QsciLexer *LanguageLexers::create(const QString &language, QObject *parent)
{
    const LexerMaker maker = makers().value(Languages::lexer(language));
    return maker ? maker(language, parent) : nullptr;
}

} // namespace koru::sedgui
