#include "tabcornerwidget.h"

#include <QHelpEvent>
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
    void cleanup();
    void click_data();
    void click();
    void otherButtonsDoNotEndALeftPress();
    void toolTipOnlyOverTheButton();

private:
    QStyleOptionComplex buttonOption() const;
    QPoint onButton() const;
    QPoint offButton() const;

    TabCornerWidget *m_widget = nullptr;
};

void TestTabCornerWidget::init()
{
    m_widget = new TabCornerWidget(nullptr);
    // Wider than the button, so there is room beside it to drag to.
    m_widget->resize(m_widget->sizeHint() + QSize(60, 0));
    m_widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_widget));
    QStyleOptionComplex option = buttonOption();
    QCOMPARE(m_widget->style()->hitTestComplexControl(QStyle::CC_MdiControls, &option, offButton(),
                                                      m_widget),
             QStyle::SC_None);
}

void TestTabCornerWidget::cleanup()
{
    delete m_widget;
}

QStyleOptionComplex TestTabCornerWidget::buttonOption() const
{
    QStyleOptionComplex option(1, QStyleOption::SO_ComplexCustomBase);
    option.initFrom(m_widget);
    option.subControls = QStyle::SC_MdiCloseButton;
    return option;
}

QPoint TestTabCornerWidget::onButton() const
{
    const QStyleOptionComplex option = buttonOption();
    return m_widget->style()
        ->subControlRect(QStyle::CC_MdiControls, &option, QStyle::SC_MdiCloseButton, m_widget)
        .center();
}

QPoint TestTabCornerWidget::offButton() const
{
    const QPoint center = onButton();
    return QPoint(center.x() < m_widget->width() / 2 ? m_widget->width() - 2 : 1, center.y());
}

void TestTabCornerWidget::click_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("pressOn");
    QTest::addColumn<bool>("dragOff");
    QTest::addColumn<bool>("releaseOn");
    QTest::addColumn<int>("closes");

    QTest::newRow("left press and release on the button")
        << Qt::LeftButton << true << false << true << 1;
    QTest::newRow("left press on, drag off, release off")
        << Qt::LeftButton << true << true << false << 0;
    QTest::newRow("left press on, drag off and back")
        << Qt::LeftButton << true << true << true << 1;
    QTest::newRow("left click beside the button") << Qt::LeftButton << false << false << false << 0;
    QTest::newRow("left press off, release on") << Qt::LeftButton << false << false << true << 0;
    QTest::newRow("right click on the button") << Qt::RightButton << true << false << true << 0;
    QTest::newRow("middle click on the button") << Qt::MiddleButton << true << false << true << 0;
}

void TestTabCornerWidget::click()
{
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, pressOn);
    QFETCH(bool, dragOff);
    QFETCH(bool, releaseOn);
    QFETCH(int, closes);

    QSignalSpy spy(m_widget, &TabCornerWidget::sigCloseTool);
    QTest::mousePress(m_widget, button, {}, pressOn ? onButton() : offButton());
    if (dragOff)
        QTest::mouseMove(m_widget, offButton());
    QTest::mouseRelease(m_widget, button, {}, releaseOn ? onButton() : offButton());
    QCOMPARE(spy.count(), closes);
}

void TestTabCornerWidget::otherButtonsDoNotEndALeftPress()
{
    QSignalSpy spy(m_widget, &TabCornerWidget::sigCloseTool);
    // A left press followed by a right release stays pressed: the left release still clicks.
    QTest::mousePress(m_widget, Qt::LeftButton, {}, onButton());
    QTest::mouseRelease(m_widget, Qt::RightButton, {}, onButton());
    QCOMPARE(spy.count(), 0);
    QTest::mouseRelease(m_widget, Qt::LeftButton, {}, onButton());
    QCOMPARE(spy.count(), 1);
}

void TestTabCornerWidget::toolTipOnlyOverTheButton()
{
    GermanMdiTranslator translator;
    QVERIFY(QCoreApplication::installTranslator(&translator));

    QHelpEvent beside(QEvent::ToolTip, offButton(), m_widget->mapToGlobal(offButton()));
    QApplication::sendEvent(m_widget, &beside);
    QVERIFY(!QToolTip::isVisible());

    QHelpEvent over(QEvent::ToolTip, onButton(), m_widget->mapToGlobal(onButton()));
    QApplication::sendEvent(m_widget, &over);
    QVERIFY(QToolTip::isVisible());
    QCOMPARE(QToolTip::text(), QStringLiteral("Schließen"));

    QCoreApplication::removeTranslator(&translator);
    QToolTip::hideText();
}

QTEST_MAIN(TestTabCornerWidget)
#include "tst_tabcornerwidget.moc"
