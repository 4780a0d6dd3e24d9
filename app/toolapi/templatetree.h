#pragma once

#include "sedguiexport.h"

#include <QList>
#include <QObject>

class QWidget;

namespace koru::sedgui {

class SedGUI;

// The registry of every open document. Documents register themselves while
// they exist; the shell asks it, on every activation of its window, for a
// document whose file was changed outside the program.
class SEDGUI_EXPORT TemplateTree : public QObject
{
    Q_OBJECT

public:
    static TemplateTree *Instance();

    // The first document whose file changed outside since it was last asked,
    // after that document has dealt with the user; null when there is none.
    QWidget *checkFileChanged();

    void addDocument(SedGUI *document);
    void removeDocument(SedGUI *document);
    QList<SedGUI *> documents() const { return m_documents; }

private:
    TemplateTree();

    QList<SedGUI *> m_documents;
};

} // namespace koru::sedgui
