#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QPointer>

class QWidget;

namespace koru::sedgui {

class SedGUI;

// Several documents closing together (Quit, Close All). The modified ones are
// asked about once, before any document closes; while the batch exists, each
// document's closeTool(false) follows that answer instead of asking again:
// after Cancel (or a save that failed) every document stays open, modified or
// not; otherwise each closes. One batch is current at a time; a batch made
// while another exists stands in for it until it is destroyed.
class SEDGUI_EXPORT CloseBatch
{
public:
    enum class Verdict {
        Ask,  // no batch holds the document: the document asks as usual
        Keep, // the batch is cancelled or not settled yet: the document stays open
        Close // the user has decided: close without asking
    };

    explicit CloseBatch(const QList<SedGUI *> &documents);
    ~CloseBatch();
    CloseBatch(const CloseBatch &) = delete;
    CloseBatch &operator=(const CloseBatch &) = delete;

    // Asks about the modified documents (one of them: the usual one-document
    // question; several: one list), saves those the user chose and returns
    // true. Returns false, and keeps every document open, when the user
    // cancelled or a save failed.
    bool settle(QWidget *parent);

    static Verdict verdict(const SedGUI *document);

private:
    static CloseBatch *s_current;

    CloseBatch *m_previous = nullptr;
    QList<QPointer<SedGUI>> m_documents;
    // Until the user has answered (and the saves are done) nothing closes.
    bool m_settled = false;
};

} // namespace koru::sedgui
