#include "session/tabopener.h"

#include "sedgui.h"
#include "templatetree.h"

#include <QMainWindow>

namespace koru::sedgui {

SedGUI *TabOpener::open(QMainWindow *window, const QString &path, QString *error)
{
    TemplateTree *tree = TemplateTree::Instance();
    if (SedGUI *open = path.isEmpty() ? nullptr : tree->findDocument(path))
        return open;
    // The window's File > New makes the tab, its menus and title as usual;
    // the file is then loaded into that empty document, which is what File >
    // Open's tool does too, minus the Recent Files entry the window adds.
    const QList<SedGUI *> before = tree->documents();
    QMetaObject::invokeMethod(window, "onNewFile", Qt::DirectConnection);
    SedGUI *document = nullptr;
    for (SedGUI *made : tree->documents()) {
        if (!before.contains(made))
            document = made;
    }
    if (!document || path.isEmpty() || document->openFile(path, error))
        return document;
    document->closeTool(true);
    return nullptr;
}

} // namespace koru::sedgui
