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
    // Wider than the button: room beside it to drag to.
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
    // Steps of press/move/release (p/m/r), left/right button (L/R), on/off the button (+/-).
    QTest::addColumn<QString>("steps");
    QTest::addColumn<int>("closes");
    QTest::newRow("left click on the button") << "pL+ rL+" << 1;
    QTest::newRow("drag off, release off") << "pL+ mL- rL-" << 0;
    QTest::newRow("drag off and back") << "pL+ mL- rL+" << 1;
    QTest::newRow("left click beside the button") << "pL- rL-" << 0;
    QTest::newRow("press off, release on") << "pL- rL+" << 0;
    QTest::newRow("right click on the button") << "pR+ rR+" << 0;
    QTest::newRow("a right release keeps a left press") << "pL+ rR+ rL+" << 1;
}

void TestTabCornerWidget::click()
{
    QFETCH(QString, steps);
    QFETCH(int, closes);
    QSignalSpy spy(m_widget, &TabCornerWidget::sigCloseTool);
    for (const QString &step : steps.split(QLatin1Char(' '))) {
        const QPoint pos = at(step[2] == u'+');
        const Qt::MouseButton button = step[1] == u'L' ? Qt::LeftButton : Qt::RightButton;
        if (step[0] == u'p')
            QTest::mousePress(m_widget, button, {}, pos);
        else if (step[0] == u'm')
            QTest::mouseMove(m_widget, pos);
        else
            QTest::mouseRelease(m_widget, button, {}, pos);
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
