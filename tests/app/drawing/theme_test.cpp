#include "app/drawing/ink.h"

#include <QApplication>
#include <QPalette>
#include <QQmlComponent>
#include <QQmlEngine>

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace tarvolt {
namespace {

/// The three colours of a platform's palette that all others come from.
struct Platform {
    QRgb window;
    QRgb base;
    QRgb text;
};

constexpr Platform lightPlatform{0xEFEFEF, 0xFFFFFF, 0x000000};
constexpr Platform darkPlatform{0x242424, 0x1E1E1E, 0xFFFFFF};

/// The look of the window on a platform.
class ThemeOf {
public:
    explicit ThemeOf(const Platform& platform) {
        QPalette palette;
        palette.setColor(QPalette::Window, QColor(platform.window));
        palette.setColor(QPalette::Base, QColor(platform.base));
        palette.setColor(QPalette::WindowText, QColor(platform.text));
        QApplication::setPalette(palette);
        engine_.addImportPath(QStringLiteral(":/qt/qml"));
        QQmlComponent component(&engine_);
        component.setData("import QtQml; import Tarvolt; QtObject { readonly property QtObject theme: Theme }", QUrl());
        holder_.reset(component.create());
        EXPECT_TRUE(holder_) << component.errorString().toStdString();
    }
    ThemeOf(const ThemeOf&) = delete;
    ThemeOf& operator=(const ThemeOf&) = delete;
    ~ThemeOf() { QApplication::setPalette(usual_); }

    bool dark() const { return property("dark").toBool(); }
    QColor operator[](const char* role) const {
        const QVariant value = property(role);
        EXPECT_TRUE(value.isValid()) << role;
        return value.value<QColor>();
    }

private:
    QVariant property(const char* name) const { return holder_->property("theme").value<QObject*>()->property(name); }

    QPalette usual_ = QApplication::palette();
    QQmlEngine engine_;
    std::unique_ptr<QObject> holder_;
};

std::string hexOf(const QColor& colour) {
    return colour.name().toUpper().toStdString();
}

struct RoleRow {
    const char* role;
    const char* light;
    const char* dark;
};

TEST(ThemeTest, HasTheColoursOfTheTableForTheUsualPalettes) {
    const RoleRow rows[] = {
        {"primary", "#161616", "#F2F2F2"},
        {"secondary", "#606060", "#B0B0B0"},
        {"secondarySixTenths", "#0B0B0B", "#E6E6E6"},
        {"secondaryEightTenths", "#4A4A4A", "#B0B0B0"},
        {"secondaryHalf", "#232323", "#B8B8B8"},
        {"orange", "#D75600", "#FF9F45"},
        {"orangeSixTenths", "#962C00", "#FF9F45"},
        {"badge", "#FF7A00", "#FF9F45"},
        {"prominent", "#C94E00", "#F5903A"},
        {"prominentHover", "#B94800", "#F6A056"},
        {"prominentPressed", "#A54000", "#D37C32"},
        {"prominentLabel", "#FFFFFF", "#241202"},
        {"green", "#1A7533", "#62D284"},
        {"greenSixTenths", "#00521C", "#62D284"},
        {"red", "#C01C28", "#FF857D"},
        {"redSevenTenths", "#C01C28", "#FF9A93"},
        {"yellow", "#875F00", "#F3CB52"},
        {"fieldBorder", "#939393", "#6F6F6F"},
        {"card", "#FFFFFF", "#2E2E2E"},
        {"sheet", "#F8F8F8", "#2D2D2D"},
    };
    const ThemeOf light(lightPlatform);
    EXPECT_FALSE(light.dark());
    for (const auto& row : rows) {
        EXPECT_EQ(hexOf(light[row.role]), row.light) << row.role << ", light";
    }
    const ThemeOf dark(darkPlatform);
    EXPECT_TRUE(dark.dark());
    for (const auto& row : rows) {
        EXPECT_EQ(hexOf(dark[row.role]), row.dark) << row.role << ", dark";
    }
}

struct InkRow {
    const char* ink;
    QColor colour;
    double opacity;
    QColor surface;
    double least;
};

void expectReadable(const Platform& platform, const char* name) {
    const ThemeOf theme(platform);
    const QColor log = Ink::drawn(theme["quaternary"], 0.3, theme["window"]);
    const QColor search = Ink::drawn(theme["quaternary"], 0.5, theme["window"]);
    const QColor preview = Ink::drawn(theme["quaternary"], 0.5, theme["sheet"]);
    const QColor badge = Ink::drawn(theme["badge"], 0.1, theme["window"]);
    const InkRow rows[] = {
        {"name", theme["primary"], 1, theme["card"], 4.5},
        {"title", theme["primary"], 1, theme["window"], 4.5},
        {"message", theme["primary"], 1, log, 4.5},
        {"button", theme["primary"], 1, theme["face"], 4.5},
        {"details", theme["secondary"], 1, theme["card"], 4.5},
        {"path", theme["secondary"], 1, theme["window"], 4.5},
        {"badge text", theme["secondary"], 1, badge, 4.5},
        {"placeholder", theme["secondary"], 1, search, 4.5},
        {"caption", theme["secondary"], 1, theme["sheet"], 4.5},
        {"preview note", theme["secondary"], 1, preview, 4.5},
        {"log title", theme["secondary"], 1, log, 4.5},
        {"time", theme["secondarySixTenths"], 0.6, log, 4.5},
        {"empty state text", theme["secondaryEightTenths"], 0.8, theme["window"], 4.5},
        {"empty state icon", theme["secondaryHalf"], 0.5, theme["window"], 3},
        {"project icon", theme["orange"], 1, theme["card"], 3},
        {"title icon", theme["orange"], 1, theme["window"], 3},
        {"search focus", theme["orange"], 1, search, 3},
        {"picker icon", theme["orangeSixTenths"], 0.6, theme["window"], 3},
        {"new name", theme["green"], 1, preview, 4.5},
        {"renamed icon", theme["green"], 1, theme["card"], 3},
        {"good dot", theme["greenSixTenths"], 0.6, log, 3},
        {"error line", theme["red"], 1, log, 4.5},
        {"old name", theme["redSevenTenths"], 0.7, preview, 3},
        {"warning", theme["yellow"], 1, theme["card"], 4.5},
        {"field border", theme["fieldBorder"], 1, theme["base"], 3},
        {"prominent label", theme["prominentLabel"], 1, theme["prominent"], 4.5},
        {"prominent label, hover", theme["prominentLabel"], 1, theme["prominentHover"], 4.5},
        {"prominent label, pressed", theme["prominentLabel"], 1, theme["prominentPressed"], 4.5},
    };
    for (const auto& row : rows) {
        EXPECT_GE(Ink::contrastRatio(Ink::drawn(row.colour, row.opacity, row.surface), row.surface), row.least)
            << row.ink << ", " << name;
    }
}

TEST(ThemeTest, IsLegibleInLightDarkSoftAndMidGreyPalettes) {
    expectReadable(lightPlatform, "light");
    expectReadable(darkPlatform, "dark");
    expectReadable({0xF6F5F4, 0xFFFFFF, 0x2E3436}, "soft text");
    expectReadable({0x353535, 0x2D2D2D, 0xEEEEEC}, "mid grey");
    expectReadable({0xEFF0F1, 0xFCFCFC, 0x232629}, "bluish light");
    expectReadable({0x2A2E32, 0x1B1E20, 0xFCFCFC}, "bluish dark");
}

TEST(ThemeTest, MakesAHoveredButtonStandOut) {
    for (const auto& platform : {lightPlatform, darkPlatform}) {
        const ThemeOf theme(platform);
        for (const QColor& other : {theme["face"], theme["window"], theme["card"]}) {
            EXPECT_GE(Ink::contrastRatio(theme["faceHover"], other), 1.15) << hexOf(other);
        }
        EXPECT_GE(Ink::contrastRatio(theme["primary"], theme["faceHover"]), 4.5);
        EXPECT_GE(Ink::contrastRatio(theme["primary"], theme["facePressed"]), 4.5);
    }
}

TEST(ThemeTest, StopsSearchingIfNoInkIsLegible) {
    // A dark palette, whose ink is moved towards white, with fields so bright that white cannot be told from them.
    const ThemeOf theme({0x000000, 0xA0A0A0, 0xFFFFFF});
    EXPECT_TRUE(theme.dark());
    EXPECT_LT(Ink::contrastRatio(theme["fieldBorder"], theme["base"]), 3);
}

TEST(ThemeTest, MeasuresContrastAsWcagDoes) {
    EXPECT_DOUBLE_EQ(Ink::contrastRatio(Qt::black, Qt::white), 21);
    EXPECT_DOUBLE_EQ(Ink::contrastRatio(Qt::white, Qt::black), 21);
    EXPECT_DOUBLE_EQ(Ink::contrastRatio(QColor(77, 77, 77), QColor(77, 77, 77)), 1);
    EXPECT_NEAR(Ink::contrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

} // namespace
} // namespace tarvolt
