#include "tests/app/bridge/measures.h"

#include <QApplication>
#include <QProxyStyle>
#include <QQmlExpression>

#include <utility>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// How long a movement takes, asked as a view asks it.
int timeOf(const SceneWindow& w, const QString& movement) {
    QQuickItem* view = w.find("headerView");
    QQmlExpression expression(qmlContext(view), view, "Theme." + movement);
    return expression.evaluate().toInt();
}

/// How long a panel takes to come and to go.
std::pair<int, int> timesOf(const SceneWindow& w, const QString& panel) {
    const auto* found = w.window->findChild<QObject*>(panel);
    return {found->property("timeIn").toInt(), found->property("timeOut").toInt()};
}

TEST(MovementTest, TakesItsTime) {
    SceneWindow w;
    EXPECT_EQ(timesOf(w, "renameSheet"), std::pair(180, 120));
    EXPECT_EQ(timesOf(w, "failureAlert"), std::pair(140, 100));
    EXPECT_EQ(timeOf(w, "hoverFade"), 90);
    EXPECT_EQ(timeOf(w, "highlightIn"), 160);
    EXPECT_EQ(timeOf(w, "highlightOut"), 400);
    EXPECT_EQ(timeOf(w, "viewFade"), 140);
}

TEST(MovementTest, TheSpinnerTurnsWhileVisible) {
    SceneWindow w;
    w.addProjects(1);
    w.choose();
    w.bridge->rescan();
    QCoreApplication::processEvents();
    const QQuickItem* spinner = w.find("spinnerQuarter");
    const double before = spinner->property("angle").toDouble();
    EXPECT_TRUE(QTest::qWaitFor([&] { return spinner->property("angle").toDouble() != before; }));
    w.settle();
    EXPECT_FALSE(spinner->isVisible());
}

/// The style of a system that asks for no movement.
class StillStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST(MovementTest, IsOffIfTheSystemAsksForReducedMotion) {
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new StillStyle(usual));
    {
        SceneWindow w;
        EXPECT_EQ(timesOf(w, "renameSheet"), std::pair(0, 0));
        EXPECT_EQ(timesOf(w, "failureAlert"), std::pair(0, 0));
        for (const char* movement : {"hoverFade", "highlightIn", "highlightOut", "viewFade"}) {
            EXPECT_EQ(timeOf(w, movement), 0) << movement;
        }
        w.addProjects(1);
        w.choose();
        w.bridge->rescan();
        QCoreApplication::processEvents();
        const QQuickItem* spinner = w.find("spinnerQuarter");
        EXPECT_FALSE(QTest::qWaitFor([&] { return spinner->property("angle").toDouble() != 0; }, 250));
    }
    QApplication::setStyle(usual);
}

} // namespace
} // namespace tarvolt
