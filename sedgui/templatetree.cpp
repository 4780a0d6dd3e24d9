#include "templatetree.h"

#include "sedgui.h"

namespace koru::sedgui {

TemplateTree::TemplateTree() = default;

TemplateTree *TemplateTree::Instance()
{
    static TemplateTree *tree = new TemplateTree;
    return tree;
}

QWidget *TemplateTree::checkFileChanged()
{
    // Copy: dealing with the user may close or open documents.
    const QList<SedGUI *> documents = m_documents;
    for (SedGUI *document : documents) {
        if (m_documents.contains(document) && document->handleExternalChange())
            return document;
    }
    return nullptr;
}

void TemplateTree::addDocument(SedGUI *document)
{
    if (!m_documents.contains(document))
        m_documents.append(document);
}

void TemplateTree::removeDocument(SedGUI *document)
{
    m_documents.removeAll(document);
}

} // namespace koru::sedgui
