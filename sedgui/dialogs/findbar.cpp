#include "dialogs/findbar.h"

#include "editing/matchmarker.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include <Qsci/qsciscintilla.h>

#include <limits>

namespace koru::sedgui {

namespace {

SearchQuery &sharedLastQuery()
{
    static SearchQuery query;
    return query;
}

// Searching a very large buffer can take a moment; show that it is busy.
class BusyCursor
{
public:
    BusyCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~BusyCursor() { QGuiApplication::restoreOverrideCursor(); }
    BusyCursor(const BusyCursor &) = delete;
    BusyCursor &operator=(const BusyCursor &) = delete;
};

} // namespace

FindBar::FindBar(QsciScintilla *editor, QWidget *parent)
    : QFrame(parent)
    , m_editor(editor)
    , m_findEdit(new QLineEdit(this))
    , m_replaceEdit(new QLineEdit(this))
    , m_replaceLabel(new QLabel(tr("Re&place:"), this))
    , m_replaceButton(new QPushButton(tr("&Replace"), this))
    , m_replaceAllButton(new QPushButton(tr("Replace &All"), this))
    , m_regex(new QCheckBox(tr("Re&gular expression"), this))
    , m_matchCase(new QCheckBox(tr("&Match case"), this))
    , m_wholeWord(new QCheckBox(tr("&Whole word"), this))
    , m_wrap(new QCheckBox(tr("Wra&p around"), this))
    , m_backwards(new QCheckBox(tr("&Backwards"), this))
    , m_status(new QLabel(this))
    , m_count(new QLabel(this))
    , m_marker(new MatchMarker(editor, this))
{
    setObjectName(QStringLiteral("FindBar"));
    setFrameShape(QFrame::StyledPanel);
    m_wrap->setChecked(true);
    m_status->setTextFormat(Qt::PlainText);
    m_findEdit->setPlaceholderText(tr("Text to find"));
    m_replaceEdit->setPlaceholderText(tr("Replacement"));
    m_regex->setToolTip(
        tr("Perl-compatible: ( ) captures a group, \\d a digit, \\b a word bound, (?=...) and "
           "(?<=...) look ahead and behind; \\1 to \\9 or $1 to $9 in the replacement insert "
           "the groups, \\0 the whole match."));

    auto *findLabel = new QLabel(tr("F&ind:"), this);
    findLabel->setBuddy(m_findEdit);
    m_replaceLabel->setBuddy(m_replaceEdit);
    auto *findButton = new QPushButton(tr("&Find"), this);
    auto *closeButton = new QToolButton(this);
    closeButton->setAutoRaise(true);
    closeButton->setText(QStringLiteral("\u00d7"));
    closeButton->setToolTip(tr("Close (Escape)"));

    auto *options = new QHBoxLayout;
    for (QCheckBox *box : {m_regex, m_matchCase, m_wholeWord, m_wrap, m_backwards}) {
        options->addWidget(box);
    }
    options->addStretch(1);
    options->addWidget(m_status);
    options->addWidget(m_count);
    m_count->setObjectName(QStringLiteral("matchCount"));
    m_count->setTextFormat(Qt::PlainText);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(4, 2, 4, 2);
    grid->addWidget(findLabel, 0, 0);
    grid->addWidget(m_findEdit, 0, 1);
    grid->addWidget(findButton, 0, 2);
    grid->addWidget(closeButton, 0, 4);
    grid->addWidget(m_replaceLabel, 1, 0);
    grid->addWidget(m_replaceEdit, 1, 1);
    grid->addWidget(m_replaceButton, 1, 2);
    grid->addWidget(m_replaceAllButton, 1, 3);
    grid->addLayout(options, 2, 0, 1, 5);
    grid->setColumnStretch(1, 1);

    connect(findButton, &QPushButton::clicked, this, [this] { findNext(); });
    connect(m_findEdit, &QLineEdit::returnPressed, this,
            [this] { findNext(QGuiApplication::keyboardModifiers().testFlag(Qt::ShiftModifier)); });
    connect(m_replaceEdit, &QLineEdit::returnPressed, this, &FindBar::replaceOne);
    connect(m_replaceButton, &QPushButton::clicked, this, &FindBar::replaceOne);
    connect(m_replaceAllButton, &QPushButton::clicked, this, &FindBar::replaceAll);
    connect(closeButton, &QToolButton::clicked, this, [this] {
        hide();
        m_editor->setFocus();
    });
    connect(m_findEdit, &QLineEdit::textEdited, this, &FindBar::findAsTyped);
    for (QCheckBox *box : {m_regex, m_matchCase, m_wholeWord}) {
        connect(box, &QCheckBox::toggled, this, &FindBar::updateMarks);
    }
    connect(m_marker, &MatchMarker::changed, this,
            [this] { m_count->setText(m_marker->summary()); });
}

void FindBar::showFind(const QString &seed)
{
    open(false, seed);
}

void FindBar::showReplace(const QString &seed)
{
    open(true, seed);
}

void FindBar::open(bool replacing, const QString &seed)
{
    for (QWidget *widget :
         {static_cast<QWidget *>(m_replaceLabel), static_cast<QWidget *>(m_replaceEdit),
          static_cast<QWidget *>(m_replaceButton), static_cast<QWidget *>(m_replaceAllButton)}) {
        widget->setVisible(replacing);
    }
    if (!seed.isEmpty() && !seed.contains(QLatin1Char('\n'))) {
        m_findEdit->setText(seed);
    } else if (m_findEdit->text().isEmpty()) {
        setQuery(lastQuery());
    }
    setStatus(QString());
    m_searchStart = m_editor->SendScintilla(QsciScintillaBase::SCI_GETSELECTIONSTART);
    show();
    updateMarks();
    m_findEdit->setFocus();
    m_findEdit->selectAll();
}

SearchQuery FindBar::query() const
{
    SearchQuery query;
    query.pattern = m_findEdit->text();
    query.regex = m_regex->isChecked();
    query.matchCase = m_matchCase->isChecked();
    query.wholeWord = m_wholeWord->isChecked();
    query.wrap = m_wrap->isChecked();
    query.backwards = m_backwards->isChecked();
    return query;
}

void FindBar::setQuery(const SearchQuery &query)
{
    m_findEdit->setText(query.pattern);
    m_regex->setChecked(query.regex);
    m_matchCase->setChecked(query.matchCase);
    m_wholeWord->setChecked(query.wholeWord);
    m_wrap->setChecked(query.wrap);
    m_backwards->setChecked(query.backwards);
}

void FindBar::findAsTyped()
{
    setStatus(QString());
    const SearchQuery current = query();
    if (!current.pattern.isEmpty()) {
        SearchQuery forwards = current;
        forwards.backwards = false;
        const SearchMatch match = TextSearcher::find(m_editor, forwards, m_searchStart);
        if (match.found()) {
            const long line = m_editor->SendScintilla(QsciScintillaBase::SCI_LINEFROMPOSITION,
                                                      static_cast<unsigned long>(match.start));
            m_editor->SendScintilla(QsciScintillaBase::SCI_ENSUREVISIBLEENFORCEPOLICY, line);
            m_editor->SendScintilla(QsciScintillaBase::SCI_SETSEL,
                                    static_cast<unsigned long>(match.start),
                                    static_cast<long>(match.end));
            m_editor->SendScintilla(QsciScintillaBase::SCI_SCROLLRANGE,
                                    static_cast<unsigned long>(match.start),
                                    static_cast<long>(match.end));
        }
        report(match);
    }
    updateMarks();
}

void FindBar::updateMarks()
{
    if (isVisible()) {
        m_marker->setQuery(query());
    }
}

QString FindBar::matchSummary() const
{
    return m_marker->summary();
}

void FindBar::setReplacement(const QString &text)
{
    m_replaceEdit->setText(text);
}

SearchMatch FindBar::findNext(bool reverse)
{
    SearchQuery current = query();
    setLastQuery(current);
    if (current.pattern.isEmpty()) {
        setStatus(tr("Type the text to find."));
        return {};
    }
    current.backwards = current.backwards != reverse;
    BusyCursor busy;
    const SearchMatch match = TextSearcher::findNext(m_editor, current);
    report(match);
    return match;
}

bool FindBar::replaceOne()
{
    const SearchQuery current = query();
    setLastQuery(current);
    if (current.pattern.isEmpty()) {
        setStatus(tr("Type the text to find."));
        return false;
    }
    if (m_editor->isReadOnly()) {
        setStatus(tr("The document is read-only."));
        return false;
    }
    BusyCursor busy;
    SearchMatch next;
    const bool replaced =
        TextSearcher::replaceSelection(m_editor, current, m_replaceEdit->text(), &next);
    report(next);
    return replaced;
}

qint64 FindBar::replaceAll()
{
    const SearchQuery current = query();
    setLastQuery(current);
    if (current.pattern.isEmpty()) {
        setStatus(tr("Type the text to find."));
        return 0;
    }
    if (m_editor->isReadOnly()) {
        setStatus(tr("The document is read-only."));
        return 0;
    }
    BusyCursor busy;
    const qint64 count = TextSearcher::replaceAll(m_editor, current, m_replaceEdit->text());
    if (count < 0) {
        setStatus(tr("The regular expression is not valid."));
    } else if (count == 0) {
        setStatus(tr("Not found."));
    } else {
        setStatus(tr("Replaced %n occurrence(s).", nullptr,
                     int(std::min<qint64>(count, std::numeric_limits<int>::max()))));
    }
    return count;
}

void FindBar::report(const SearchMatch &match)
{
    if (match.invalidPattern) {
        setStatus(tr("The regular expression is not valid."));
    } else if (!match.found()) {
        setStatus(tr("Not found."));
    } else if (match.wrapped) {
        setStatus(tr("Search wrapped around."));
    } else {
        setStatus(QString());
    }
}

QString FindBar::status() const
{
    return m_status->text();
}

void FindBar::setStatus(const QString &text)
{
    m_status->setText(text);
}

SearchQuery FindBar::lastQuery()
{
    return sharedLastQuery();
}

void FindBar::setLastQuery(const SearchQuery &query)
{
    sharedLastQuery() = query;
}

void FindBar::showEvent(QShowEvent *event)
{
    QFrame::showEvent(event);
    updateMarks();
}

void FindBar::hideEvent(QHideEvent *event)
{
    QFrame::hideEvent(event);
    m_marker->clear();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape) {
        hide();
        m_editor->setFocus();
        return;
    }
    QFrame::keyPressEvent(event);
}

} // namespace koru::sedgui
