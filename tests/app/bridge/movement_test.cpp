#include "tests/app/bridge/measures.h"

#include <QApplication>
#include <QProxyStyle>
#include <QQmlExpression>

#include <utility>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// What the theme says, asked as a view asks it.
int timeOf(const SceneWindow& w, const QString& movement) {
    QQuickItem* view = w.find("headerView");
    QQmlExpression expression(qmlContext(view), view, "Theme." + movement);
    return expression.evaluate().toInt();
}

TEST(MovementTest, TakesItsTime) {
    SceneWindow w;
    const std::pair<const char*, int> times[] = {
        {"sheetIn", 180},  {"sheetOut", 120},    {"sheetRise", 12},     {"alertIn", 140},  {"alertOut", 100},
        {"hoverFade", 90}, {"highlightIn", 160}, {"highlightOut", 400}, {"viewFade", 140}, {"spinnerTurn", 900},
    };
    for (const auto& [movement, time] : times) {
        EXPECT_EQ(timeOf(w, movement), time) << movement;
    }
}

TEST(MovementTest, TheSpinnerTurnsWhileItIsSeen) {
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

TEST(MovementTest, IsNoneWhereTheSystemAsksForNone) {
    const QString usual = QApplication::style()->name();
    QApplication::setStyle(new StillStyle(usual));
    {
        SceneWindow w;
        for (const char* movement :
             {"sheetIn", "sheetOut", "alertIn", "alertOut", "hoverFade", "highlightIn", "highlightOut", "viewFade"}) {
            EXPECT_EQ(timeOf(w, movement), 0) << movement;
        }
        w.addProjects(1);
        w.choose();
        w.bridge->rescan();
        QCoreApplication::processEvents();
        const QQuickItem* spinner = w.find("spinnerQuarter");
        QTest::qWait(SceneWindow::movement);
        EXPECT_EQ(spinner->property("angle").toDouble(), 0);
    }
    QApplication::setStyle(usual);
}

} // namespace
} // namespace tarvolt
