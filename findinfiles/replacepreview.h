#pragma once

#include "replaceplan.h"

#include <QDialog>

class QTableView;
class ReplacePreviewModel;

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
    ReplacePreviewModel *m_model = nullptr;
    QTableView *m_table = nullptr;
};
