#pragma once

#include <QObject>

class QsciScintilla;

namespace koru::sedgui {

// A number that changes whenever the editor's text does, so that a reader
// can tell in constant time that a text it read earlier is still the one in
// the buffer, instead of copying and comparing it.
//
// Every change passes one of two places: the notice the component sends
// before an insertion or a deletion (it comes even when ChangeRelay keeps the
// change's own report back), and textChanged, which the bulk edits that
// switch all notices off emit themselves right after (TextSearcher::
// announceChange). Counting both misses none; a change counted twice does no
// harm, as only equality is asked.
class ChangeSerial : public QObject
{
    Q_OBJECT

public:
    explicit ChangeSerial(QsciScintilla *editor);

    qint64 value() const { return m_value; }

private:
    qint64 m_value = 0;
};

} // namespace koru::sedgui
