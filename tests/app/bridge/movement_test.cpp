#include "tests/app/bridge/measures.h"

#include <QAbstractAnimation>
#include <QApplication>
#include <QProxyStyle>
#include <QQmlExpression>

#include <optional>
#include <set>

namespace tarvolt {
namespace {

using testing::SceneWindow;

/// A clock for the toolkit's animations that only the test moves, in milliseconds.
class HandMovedClock final : public QAnimationDriver {
public:
    HandMovedClock() { install(); }

    qint64 elapsed() const override { return now_; }

    /// Starts the movements that are due. While nothing moves, the toolkit's time is 0.
    void begin() {
        now_ = 0;
        QCoreApplication::processEvents();
        move(0);
    }

    void move(int milliseconds) {
        now_ += milliseconds;
        advance();
        QCoreApplication::processEvents();
    }

private:
    qint64 now_ = 0;
};

/// The window with one project in it, at rest, and the clock.
class MovementTest : public ::testing::Test {
protected:
    MovementTest() {
        w.addProjects(1);
        w.choose();
        clock.emplace();
    }

    void openSheet() {
        w.bridge->projects()->beginRename(0);
        w.bridge->sheet()->setNewName(QStringLiteral("Other"));
    }

    /// How long it takes until `ended`, in steps of 10 ms.
    template<class Ended> int timeUntil(const Ended& ended) {
        constexpr int step = 10;
        int time = 0;
        for (clock->begin(); !ended() && time < 1000; time += step) {
            clock->move(step);
        }
        return time;
    }

    void failRename() {
        w.scene.disk->addFile("/p/Other.xpj", "x");
        openSheet();
        end();
        w.bridge->sheet()->submitNewName();
    }

    /// Runs every movement to its end.
    void end() {
        clock->begin();
        clock->move(1000);
    }

    QColor colour(const QString& role) const {
        QQmlExpression expression(qmlContext(w.find("headerView")), w.find("headerView"), "Theme." + role);
        return expression.evaluate().value<QColor>();
    }

    bool isOpaque(const QString& content) const { return w.find(content)->parentItem()->opacity() == 1; }

    SceneWindow w;
    std::optional<HandMovedClock> clock;
};

// The renderer ignores a last step in opacity of less than about a hundred thousandth.
TEST_F(MovementTest, TheSheetIsOpaqueHoweverShortTheLastStepWas) {
    const auto pictureAfter = [this](int lastStep) {
        openSheet();
        clock->begin();
        clock->move(90);
        w.window->grabWindow();
        clock->move(90 - lastStep);
        w.window->grabWindow();
        clock->move(lastStep);
        QImage opened = w.window->grabWindow();
        w.bridge->sheet()->cancelRename();
        end();
        return opened;
    };
    EXPECT_EQ(pictureAfter(1), pictureAfter(90));
}

TEST_F(MovementTest, TheSheetFadesIn) {
    openSheet();
    EXPECT_EQ(timeUntil([this] { return isOpaque("renameForm"); }), 180);
}

TEST_F(MovementTest, TheSheetFadesOut) {
    openSheet();
    end();
    w.bridge->sheet()->cancelRename();
    EXPECT_EQ(timeUntil([this] { return w.findAll("renameForm").empty(); }), 120);
}

TEST_F(MovementTest, TheAlertFadesIn) {
    failRename();
    EXPECT_EQ(timeUntil([this] { return isOpaque("alertForm"); }), 140);
}

TEST_F(MovementTest, TheAlertFadesOut) {
    failRename();
    end();
    w.bridge->sheet()->dismissAlert();
    EXPECT_EQ(timeUntil([this] { return w.findAll("alertForm").empty(); }), 100);
}

TEST_F(MovementTest, AButtonFadesIntoItsHoveredColour) {
    QTest::mouseMove(w.window, w.box("rowButton").center().toPoint());
    const QQuickItem* face = SceneWindow::part(w.find("rowButton"), "face");
    EXPECT_EQ(timeUntil([&] { return face->property("color") == colour("faceHover"); }), 90);
}

TEST_F(MovementTest, ARowFadesIntoItsHighlightAndOut) {
    const QQuickItem* symbol = w.find("rowSymbol");
    w.view->successProject.set(w.view->filteredProjects().front().id());
    EXPECT_EQ(timeUntil([&] { return symbol->property("colour") == colour("green"); }), 160);
    w.view->successProject.set(std::nullopt);
    EXPECT_EQ(timeUntil([&] { return symbol->property("colour") == colour("orange"); }), 400);
}

TEST_F(MovementTest, AnotherAreaFadesIn) {
    w.view->scanner->projects.set({});
    EXPECT_EQ(timeUntil([this] { return w.find("contentArea")->opacity() == 1; }), 140);
}

TEST_F(MovementTest, TheSpinnerTurnsWhileVisible) {
    w.bridge->rescan();
    clock->begin();
    const QQuickItem* spinner = w.find("spinnerQuarter");
    const double before = spinner->property("angle").toDouble();
    clock->move(100);
    EXPECT_NE(spinner->property("angle").toDouble(), before);
    w.scene.settle();
    clock->begin();
    EXPECT_FALSE(spinner->isVisible());
}

TEST_F(MovementTest, ATurnOfTheSpinnerHasTwentyTwoPictures) {
    w.bridge->rescan();
    clock->begin();
    const QQuickItem* spinner = w.find("spinnerQuarter");
    std::set<double> angles;
    for (int millisecond = 0; millisecond < 890; millisecond += 5) {
        angles.insert(spinner->property("angle").toDouble());
        clock->move(5);
    }
    EXPECT_EQ(angles.size(), 23U) << "of which the first and the last look alike";
    EXPECT_EQ(*angles.begin(), 0);
    EXPECT_EQ(*angles.rbegin(), 360);
}

/// The style of a system that asks for reduced motion.
class StillStyle final : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override {
        return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

/// The window on a system that asks for reduced motion.
class ReducedMotionTest : public MovementTest {
protected:
    ReducedMotionTest() {
        QApplication::setStyle(new StillStyle(usual));
        QEvent fontChange(QEvent::ApplicationFontChange); // The window then asks the system again.
        QCoreApplication::sendEvent(qApp, &fontChange);
    }

    ~ReducedMotionTest() override { QApplication::setStyle(usual); }

    const QString usual = QApplication::style()->name();
};

TEST_F(ReducedMotionTest, NothingMoves) {
    failRename();
    clock->begin();
    EXPECT_TRUE(isOpaque("alertForm"));
    EXPECT_TRUE(isOpaque("renameForm"));
    w.bridge->sheet()->dismissAlert();
    w.bridge->sheet()->cancelRename();
    clock->begin();
    EXPECT_TRUE(w.findAll("renameForm").empty());
    w.view->successProject.set(w.view->filteredProjects().front().id());
    clock->begin();
    EXPECT_EQ(w.find("rowSymbol")->property("colour"), colour("green"));
    w.bridge->rescan();
    clock->begin();
    clock->move(100);
    EXPECT_EQ(w.find("spinnerQuarter")->property("angle").toDouble(), 0);
}

TEST_F(ReducedMotionTest, ReturnAfterARenameDoesNothingUntilTheListIsUpdated) {
    for (int turns = 0; turns < 6; ++turns) {
        w.find("rowButton")->forceActiveFocus(Qt::TabFocusReason);
        openSheet();
        end();
        w.bridge->sheet()->setNewName(QStringLiteral("Name %1").arg(turns));
        w.bridge->sheet()->submitNewName();
        ASSERT_FALSE(w.bridge->sheet()->open());
        for (int turn = 0; turn < turns; ++turn) {
            QCoreApplication::processEvents();
        }
        // Pressed while the window was busy with the rename. QTest would let more turns of the event loop pass.
        QKeyEvent pressed(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(w.window, &pressed);
        end();
        EXPECT_FALSE(w.bridge->sheet()->open()) << "after " << turns << " turns of the event loop";
        w.bridge->sheet()->cancelRename();
        w.scene.mainQueue->advance(std::chrono::milliseconds(500));
        w.settle();
    }
}

} // namespace
} // namespace tarvolt
