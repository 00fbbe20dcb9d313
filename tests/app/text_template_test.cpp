#include "app/content_view.h"
#include "app/sections/list_texts.h"
#include "app/sections/sheet_texts.h"
#include "foundation/localized.h"
#include "tests/support/scene.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>
#include <string>
#include <utility>

namespace tarvolt {
namespace {

/// Whether the translators' template holds `key` in its part for `context`.
bool isInTemplate(const std::string& context, const std::string& key) {
    std::ifstream file(TARVOLT_TEST_DATA "/../../app/translations/tarvolt_en.ts");
    std::ostringstream content;
    content << file.rdbuf();
    const std::string text = content.str();
    const auto begin = text.find("<name>" + context + "</name>");
    const auto found = text.find("<source>" + key + "</source>", begin);
    return begin != std::string::npos && found < text.find("</context>", begin);
}

TEST(TextTemplate, ContainsEveryKeyThatTheCodeUses) {
    std::set<std::pair<std::string, std::string>> asked;
    setTranslator([&](const char* context, const char* key) {
        asked.emplace(context, key);
        return std::string(key);
    });
    const testing::Scene scene;
    const auto view = ContentView::create(scene.services());
    view->scanner->selectFolder();
    view->alertMessage();
    const MPCProject project("Song", "/p/Song.xpj", std::nullopt, 0, 0);
    projectCountText(1, "en_US");
    projectRowSentence(project, true, "en_US");
    renameButtonSentence(project);
    setTranslator(nullptr);
    EXPECT_EQ(asked.size(), 8U);
    for (const auto& [context, key] : asked) {
        EXPECT_TRUE(isInTemplate(context, key)) << context << ": " << key;
    }
}

} // namespace
} // namespace tarvolt
