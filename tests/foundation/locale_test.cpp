#include "foundation/locale.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvolt {
namespace {

using Variables = std::map<std::string, std::string>;

UserLocale localeFrom(const Variables& variables) {
    return UserLocale::from([&](const char* name) -> const char* {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    });
}

std::string searchLocale(const std::string& value) {
    return localeFrom({{"LANG", value}}).characters;
}

TEST(UserLocale, IsRootForOrderAndSearchAndEnglishForFormatsByDefault) {
    const UserLocale locale = localeFrom({});
    EXPECT_EQ(locale.collate, "");
    EXPECT_EQ(locale.characters, "");
    EXPECT_EQ(locale.time, "en_US");
    EXPECT_EQ(locale.numeric, "en_US");
}

TEST(UserLocale, TreatsCAndPosixAsUnset) {
    for (const char* name : {"C", "POSIX", "C.UTF-8", "C.utf8", "POSIX.UTF-8", "C@euro"}) {
        const UserLocale locale = localeFrom({{"LANG", name}});
        EXPECT_EQ(locale.collate, "") << name;
        EXPECT_EQ(locale.characters, "") << name;
        EXPECT_EQ(locale.time, "en_US") << name;
        EXPECT_EQ(locale.numeric, "en_US") << name;
    }
}

TEST(UserLocale, TakesEachCategoryFromItsOwnVariable) {
    const UserLocale locale = localeFrom({{"LC_COLLATE", "sv_SE.UTF-8"},
                                          {"LC_CTYPE", "tr_TR.UTF-8"},
                                          {"LC_TIME", "de_DE.UTF-8"},
                                          {"LC_NUMERIC", "fr_FR.UTF-8"},
                                          {"LANG", "ja_JP.UTF-8"}});
    EXPECT_EQ(locale.collate, "sv_SE");
    EXPECT_EQ(locale.characters, "tr_TR");
    EXPECT_EQ(locale.time, "de_DE");
    EXPECT_EQ(locale.numeric, "fr_FR");
}

TEST(UserLocale, TakesLangWhereACategoryIsUnsetOrEmpty) {
    const UserLocale locale = localeFrom({{"LC_ALL", ""}, {"LC_TIME", ""}, {"LC_CTYPE", "az_AZ"}, {"LANG", "ja_JP"}});
    EXPECT_EQ(locale.collate, "ja_JP");
    EXPECT_EQ(locale.characters, "az_AZ");
    EXPECT_EQ(locale.time, "ja_JP");
    EXPECT_EQ(locale.numeric, "ja_JP");
}

TEST(UserLocale, LetsLcAllOverrideTheRest) {
    const UserLocale locale =
        localeFrom({{"LC_ALL", "pt_BR.UTF-8"}, {"LC_TIME", "de_DE"}, {"LC_COLLATE", "C"}, {"LANG", "ja_JP"}});
    EXPECT_EQ(locale.collate, "pt_BR");
    EXPECT_EQ(locale.characters, "pt_BR");
    EXPECT_EQ(locale.time, "pt_BR");
    EXPECT_EQ(locale.numeric, "pt_BR");
}

TEST(UserLocale, LetsACategorySetToCOverrideLang) {
    const UserLocale locale = localeFrom({{"LC_COLLATE", "C"}, {"LC_NUMERIC", "POSIX"}, {"LANG", "de_DE.UTF-8"}});
    EXPECT_EQ(locale.collate, "");
    EXPECT_EQ(locale.numeric, "en_US");
    EXPECT_EQ(locale.time, "de_DE");
}

TEST(UserLocale, DropsTheCodesetAndTurnsModifiersIntoScripts) {
    EXPECT_EQ(searchLocale("de_DE.UTF-8"), "de_DE");
    EXPECT_EQ(searchLocale("de_DE@euro"), "de_DE");
    EXPECT_EQ(searchLocale("de_DE.ISO-8859-15@euro"), "de_DE");
    EXPECT_EQ(searchLocale("sr_RS@latin"), "sr_Latn_RS");
    EXPECT_EQ(searchLocale("sr_RS.UTF-8@latin"), "sr_Latn_RS");
    EXPECT_EQ(searchLocale("uz_UZ@cyrillic"), "uz_Cyrl_UZ");
    EXPECT_EQ(searchLocale("ks_IN@devanagari"), "ks_Deva_IN");
    EXPECT_EQ(searchLocale("tt_RU@iqtelif"), "tt_Latn_RU");
    EXPECT_EQ(searchLocale("ca_ES@valencia"), "ca_ES");
}

TEST(UserLocale, AcceptsALanguageAloneAndAnyCase) {
    EXPECT_EQ(searchLocale("tr"), "tr");
    EXPECT_EQ(searchLocale("TR_tr.utf8"), "tr_TR");
    EXPECT_EQ(searchLocale("ckb_IQ"), "ckb_IQ");
    EXPECT_EQ(searchLocale("es_419"), "es_419");
    EXPECT_EQ(searchLocale("sr@latin"), "sr_Latn");
}

TEST(UserLocale, IgnoresWhatIsNotALocaleName) {
    for (const char* name : {"en_US_POSIX", "turkish", "/usr/share/locale/x", "x", "en-US", "d3_DE", "de_D", "de_1A3",
                             ".UTF-8", "_DE", "@latin", " de", "d{", "d[", "de_D1", "de_-11"}) {
        EXPECT_EQ(searchLocale(name), "") << name;
        EXPECT_EQ(localeFrom({{"LANG", name}}).time, "en_US") << name;
    }
}

TEST(UserLocale, ReadsNoOtherVariable) {
    const UserLocale locale = localeFrom({{"LANGUAGE", "tr"}, {"LC_MESSAGES", "tr_TR"}, {"LC_MONETARY", "tr_TR"}});
    EXPECT_EQ(locale.characters, "");
    EXPECT_EQ(locale.time, "en_US");
}

TEST(CurrentLocale, IsThatOfTheEnvironment) {
    const UserLocale expected = UserLocale::from(std::getenv);
    EXPECT_EQ(currentLocale().collate, expected.collate);
    EXPECT_EQ(currentLocale().characters, expected.characters);
    EXPECT_EQ(currentLocale().time, expected.time);
    EXPECT_EQ(currentLocale().numeric, expected.numeric);
}

class EmptyEnvironment : public ::testing::Test {
protected:
    void SetUp() override {
        currentLocale(); // the process reads its environment only once, and that must be the real one
        for (const char* name : {"LC_ALL", "LC_COLLATE", "LC_CTYPE", "LC_TIME", "LC_NUMERIC", "LANG"}) {
            const char* value = std::getenv(name);
            before_.emplace_back(name, value == nullptr ? std::nullopt : std::optional<std::string>(value));
            unsetenv(name);
        }
    }

    void TearDown() override {
        for (const auto& [name, value] : before_) {
            if (value) {
                setenv(name, value->c_str(), 1);
            } else {
                unsetenv(name);
            }
        }
    }

private:
    std::vector<std::pair<const char*, std::optional<std::string>>> before_;
};

TEST_F(EmptyEnvironment, IsNotReadAgainByTheProcess) {
    const std::string time = currentLocale().time;
    setenv("LC_ALL", time == "sv_SE" ? "fi_FI" : "sv_SE", 1);
    EXPECT_EQ(currentLocale().time, time);
}

} // namespace
} // namespace tarvolt
