#include "app/drawing/theme_colours.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <string>

namespace tarvolt {
namespace {

constexpr Colour grey(int value) {
    const auto channel = static_cast<std::uint8_t>(value);
    return {channel, channel, channel, 1};
}

constexpr PlatformColours lightPlatform{grey(0xEF), grey(0xFF), grey(0)};
constexpr PlatformColours darkPlatform{grey(0x24), grey(0x1E), grey(0xFF)};

std::string hexOf(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02X%02X%02X", colour.red, colour.green, colour.blue);
    return text.data();
}

struct RoleRow {
    const char* role;
    Colour ThemeColours::*member;
    const char* light;
    const char* dark;
};

TEST(ThemeColoursTest, AreTheOnesOfTheTableForTheUsualPalettes) {
    const RoleRow rows[] = {
        {"primary", &ThemeColours::primary, "#161616", "#F2F2F2"},
        {"secondary", &ThemeColours::secondary, "#606060", "#B0B0B0"},
        {"secondary .6", &ThemeColours::secondarySixTenths, "#0B0B0B", "#E6E6E6"},
        {"secondary .8", &ThemeColours::secondaryEightTenths, "#4A4A4A", "#B0B0B0"},
        {"secondary .5", &ThemeColours::secondaryHalf, "#232323", "#B8B8B8"},
        {"orange", &ThemeColours::orange, "#D75600", "#FF9F45"},
        {"orange .6", &ThemeColours::orangeSixTenths, "#962C00", "#FF9F45"},
        {"badge", &ThemeColours::badge, "#FF7A00", "#FF9F45"},
        {"prominent", &ThemeColours::prominent, "#C94E00", "#F5903A"},
        {"prominent hover", &ThemeColours::prominentHover, "#B94800", "#F6A056"},
        {"prominent pressed", &ThemeColours::prominentPressed, "#A54000", "#D37C32"},
        {"prominent label", &ThemeColours::prominentLabel, "#FFFFFF", "#241202"},
        {"green", &ThemeColours::green, "#1A7533", "#62D284"},
        {"green .6", &ThemeColours::greenSixTenths, "#00521C", "#62D284"},
        {"red", &ThemeColours::red, "#C01C28", "#FF857D"},
        {"red .7", &ThemeColours::redSevenTenths, "#C01C28", "#FF9A93"},
        {"yellow", &ThemeColours::yellow, "#875F00", "#F3CB52"},
        {"field border", &ThemeColours::fieldBorder, "#939393", "#6F6F6F"},
        {"card", &ThemeColours::card, "#FFFFFF", "#2E2E2E"},
        {"sheet", &ThemeColours::sheet, "#F8F8F8", "#2D2D2D"},
    };
    const ThemeColours light = makeThemeColours(lightPlatform);
    const ThemeColours dark = makeThemeColours(darkPlatform);
    EXPECT_FALSE(light.dark);
    EXPECT_TRUE(dark.dark);
    for (const auto& row : rows) {
        EXPECT_EQ(hexOf(light.*row.member), row.light) << row.role << ", light";
        EXPECT_EQ(hexOf(dark.*row.member), row.dark) << row.role << ", dark";
    }
}

struct InkRow {
    const char* ink;
    Colour colour;
    double opacity;
    Colour surface;
    double least;
};

void expectReadable(const PlatformColours& platform, const char* name) {
    const ThemeColours theme = makeThemeColours(platform);
    const Colour log = drawn(theme.quaternary, 0.3, theme.window);
    const Colour search = drawn(theme.quaternary, 0.5, theme.window);
    const Colour preview = drawn(theme.quaternary, 0.5, theme.sheet);
    const Colour badge = drawn(theme.badge, 0.1, theme.window);
    const InkRow rows[] = {
        {"name", theme.primary, 1, theme.card, 4.5},
        {"title", theme.primary, 1, theme.window, 4.5},
        {"message", theme.primary, 1, log, 4.5},
        {"button", theme.primary, 1, theme.face, 4.5},
        {"details", theme.secondary, 1, theme.card, 4.5},
        {"path", theme.secondary, 1, theme.window, 4.5},
        {"badge text", theme.secondary, 1, badge, 4.5},
        {"placeholder", theme.secondary, 1, search, 4.5},
        {"caption", theme.secondary, 1, theme.sheet, 4.5},
        {"preview note", theme.secondary, 1, preview, 4.5},
        {"log title", theme.secondary, 1, log, 4.5},
        {"time", theme.secondarySixTenths, 0.6, log, 4.5},
        {"empty state text", theme.secondaryEightTenths, 0.8, theme.window, 4.5},
        {"empty state icon", theme.secondaryHalf, 0.5, theme.window, 3},
        {"project icon", theme.orange, 1, theme.card, 3},
        {"title icon", theme.orange, 1, theme.window, 3},
        {"search focus", theme.orange, 1, search, 3},
        {"picker icon", theme.orangeSixTenths, 0.6, theme.window, 3},
        {"new name", theme.green, 1, preview, 4.5},
        {"renamed icon", theme.green, 1, theme.card, 3},
        {"good dot", theme.greenSixTenths, 0.6, log, 3},
        {"error line", theme.red, 1, log, 4.5},
        {"old name", theme.redSevenTenths, 0.7, preview, 3},
        {"warning", theme.yellow, 1, theme.card, 4.5},
        {"field border", theme.fieldBorder, 1, theme.base, 3},
        {"prominent label", theme.prominentLabel, 1, theme.prominent, 4.5},
        {"prominent label, hover", theme.prominentLabel, 1, theme.prominentHover, 4.5},
        {"prominent label, pressed", theme.prominentLabel, 1, theme.prominentPressed, 4.5},
    };
    for (const auto& row : rows) {
        EXPECT_GE(contrastRatio(drawn(row.colour, row.opacity, row.surface), row.surface), row.least)
            << row.ink << ", " << name;
    }
}

TEST(ThemeColoursTest, CanBeReadInLightDarkSoftAndMidGreyPalettes) {
    expectReadable(lightPlatform, "light");
    expectReadable(darkPlatform, "dark");
    expectReadable({Colour{0xF6, 0xF5, 0xF4}, grey(0xFF), Colour{0x2E, 0x34, 0x36}}, "soft text");
    expectReadable({grey(0x35), grey(0x2D), Colour{0xEE, 0xEE, 0xEC}}, "mid grey");
    expectReadable({Colour{0xEF, 0xF0, 0xF1}, Colour{0xFC, 0xFC, 0xFC}, Colour{0x23, 0x26, 0x29}}, "bluish light");
    expectReadable({Colour{0x2A, 0x2E, 0x32}, Colour{0x1B, 0x1E, 0x20}, Colour{0xFC, 0xFC, 0xFC}}, "bluish dark");
}

TEST(ThemeColoursTest, LetAButtonStandOutWhileItIsPointedAt) {
    for (const auto& platform : {lightPlatform, darkPlatform}) {
        const ThemeColours theme = makeThemeColours(platform);
        for (const Colour other : {theme.face, theme.window, theme.card}) {
            EXPECT_GE(contrastRatio(theme.faceHover, other), 1.15) << hexOf(other);
        }
        EXPECT_GE(contrastRatio(theme.primary, theme.faceHover), 4.5);
        EXPECT_GE(contrastRatio(theme.primary, theme.facePressed), 4.5);
    }
}

TEST(ThemeColoursTest, EndTheirSearchForAnInkWhereNoneCanBeRead) {
    // A dark palette, whose ink is moved towards white, with fields so bright that white cannot be told from them.
    const ThemeColours theme = makeThemeColours({grey(0), grey(0xA0), grey(0xFF)});
    EXPECT_TRUE(theme.dark);
    EXPECT_LT(contrastRatio(theme.fieldBorder, theme.base), 3);
}

TEST(ThemeColoursTest, MeasureContrastAsUsual) {
    EXPECT_DOUBLE_EQ(contrastRatio(grey(0), grey(255)), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(grey(255), grey(0)), 21);
    EXPECT_DOUBLE_EQ(contrastRatio(grey(77), grey(77)), 1);
    EXPECT_NEAR(contrastRatio(grey(0x76), grey(255)), 4.54, 0.01);
}

} // namespace
} // namespace tarvolt
