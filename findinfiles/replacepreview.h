#pragma once

#include "replaceplan.h"

#include <QDialog>

class QTreeWidget;

// Lists every change a replace in files would make, by file: the line, the
// line as it is and as it would be. Each file and each change has a check
// box; nothing is written here, the caller makes the checked changes once the
// user confirms.
class ReplacePreview : public QDialog
{
    Q_OBJECT

public:
    ReplacePreview(const QList<ReplaceFile> &plan, const QString &heading,
                   QWidget *parent = nullptr);

    // The plan with the user's checks.
    QList<ReplaceFile> plan() const;

private:
    QList<ReplaceFile> m_plan;
    QTreeWidget *m_tree = nullptr;
};
