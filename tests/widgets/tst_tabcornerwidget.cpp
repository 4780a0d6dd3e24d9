#include "tabcornerwidget.h"

#include <QHelpEvent>
#include <QScopeGuard>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionComplex>
#include <QTest>
#include <QToolTip>
#include <QTranslator>

namespace {

class GermanMdiTranslator : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        if (QByteArray(context) == "QMdiSubWindow" && QByteArray(source) == "Close")
            return QStringLiteral("Schließen");
        return QString();
    }
    bool isEmpty() const override { return false; }
};

} // namespace

class TestTabCornerWidget : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { delete m_widget; }
    void click_data();
    void click();
    void toolTipOnlyOverTheButton();

private:
    QPoint at(bool onButton) const;

    TabCornerWidget *m_widget = nullptr;
};

void TestTabCornerWidget::init()
{
    m_widget = new TabCornerWidget(nullptr);
    // Wider than the button, so there is room beside it to drag to.
    m_widget->resize(m_widget->sizeHint() + QSize(60, 0));
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget));
}

QPoint TestTabCornerWidget::at(bool onButton) const
{
    QStyleOptionComplex option(1, QStyleOption::SO_ComplexCustomBase);
    option.initFrom(m_widget);
    option.subControls = QStyle::SC_MdiCloseButton;
    const QPoint center =
        m_widget->style()
            ->subControlRect(QStyle::CC_MdiControls, &option, QStyle::SC_MdiCloseButton, m_widget)
            .center();
    if (onButton)
        return center;
    return QPoint(center.x() < m_widget->width() / 2 ? m_widget->width() - 2 : 1, center.y());
}

void TestTabCornerWidget::click_data()
{
    // Steps "press|move|release button on|off", separated by blanks.
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("closes");
    QTest::newRow("left click on the button") << "press-L-on release-L-on" << 1;
    QTest::newRow("drag off, release off") << "press-L-on move-L-off release-L-off" << 0;
    QTest::newRow("drag off and back") << "press-L-on move-L-off release-L-on" << 1;
    QTest::newRow("left click beside the button") << "press-L-off release-L-off" << 0;
    QTest::newRow("press off, release on") << "press-L-off release-L-on" << 0;
    QTest::newRow("right click on the button") << "press-R-on release-R-on" << 0;
    QTest::newRow("middle click on the button") << "press-M-on release-M-on" << 0;
    QTest::newRow("right release keeps a left press") << "press-L-on release-R-on" << 0;
    QTest::newRow("then the left release clicks") << "press-L-on release-R-on release-L-on" << 1;
}

void TestTabCornerWidget::click()
{
    QFETCH(QString, steps);
    QFETCH(int, closes);

    const QHash<QString, Qt::MouseButton> buttons{
        {"L", Qt::LeftButton}, {"R", Qt::RightButton}, {"M", Qt::MiddleButton}};
    QSignalSpy spy(m_widget, &TabCornerWidget::sigCloseTool);
    for (const QString &step : steps.split(QLatin1Char(' '))) {
        const QStringList part = step.split(QLatin1Char('-'));
        const QPoint pos = at(part[2] == QLatin1String("on"));
        if (part[0] == QLatin1String("press"))
            QTest::mousePress(m_widget, buttons[part[1]], {}, pos);
        else if (part[0] == QLatin1String("move"))
            QTest::mouseMove(m_widget, pos);
        else
            QTest::mouseRelease(m_widget, buttons[part[1]], {}, pos);
    }
    QCOMPARE(spy.count(), closes);
}

void TestTabCornerWidget::toolTipOnlyOverTheButton()
{
    GermanMdiTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));
    auto cleanup = qScopeGuard([&] {
        QCoreApplication::removeTranslator(&translator);
        QToolTip::hideText();
    });

    QHelpEvent over(QEvent::ToolTip, at(true), m_widget->mapToGlobal(at(true)));
    QApplication::sendEvent(m_widget, &over);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("Schließen"));

    // Moving beside the button takes the tip shown over it away.
    QHelpEvent beside(QEvent::ToolTip, at(false), m_widget->mapToGlobal(at(false)));
    QApplication::sendEvent(m_widget, &beside);
    QTRY_VERIFY(!QToolTip::isVisible());
}

QTEST_MAIN(TestTabCornerWidget)
#include "tst_tabcornerwidget.moc"
