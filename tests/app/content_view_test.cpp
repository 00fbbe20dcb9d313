#include "app/content_view.h"

#include "tests/support/scene.h"

#include <gtest/gtest.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvolt {
namespace {

using namespace std::chrono_literals;
using testing::messages;
using testing::names;
using testing::Scene;
using Lines = std::vector<std::string>;

class ContentViewTest : public ::testing::Test {
protected:
    ContentViewTest() { disk.addFolder("/p"); }

    void addProjects(int count, const std::string& stem = "Song ") {
        for (int i = 0; i < count; ++i) {
            disk.addFile("/p/" + stem + std::to_string(i) + ".xpj", "x");
        }
    }

    void choose(const std::string& folder) {
        scene.panel->answer = folder;
        view->scanner->selectFolder();
        scene.settle();
    }

    MPCProject project(const std::string& name) {
        for (const auto& each : view->scanner->projects.get()) {
            if (each.baseName() == name) {
                return each;
            }
        }
        throw std::out_of_range("no project " + name);
    }

    Scene scene;
    testing::FakeFileManager& disk = *scene.disk;
    std::shared_ptr<ContentView> view = ContentView::create(scene.services());
};

TEST_F(ContentViewTest, StartsWithNothingChosenTypedOrShown) {
    EXPECT_FALSE(view->renamingProject.get().has_value());
    EXPECT_EQ(view->newName.get(), "");
    EXPECT_FALSE(view->errorMessage.get().has_value());
    EXPECT_FALSE(view->showError.get());
    EXPECT_FALSE(view->successProject.get().has_value());
    EXPECT_EQ(view->searchText.get(), "");
    EXPECT_EQ(view->contentArea(), ContentArea::folderPicker);
    EXPECT_TRUE(disk.traffic().empty());
}

// The content area

TEST_F(ContentViewTest, ShowsTheListDuringAScanAndTheEmptyStateIfItFoundNothing) {
    scene.panel->answer = "/p";
    view->scanner->selectFolder();
    EXPECT_EQ(view->contentArea(), ContentArea::projectList);
    scene.settle();
    EXPECT_EQ(view->contentArea(), ContentArea::emptyState);
}

TEST_F(ContentViewTest, ShowsTheListWhenThereAreProjects) {
    addProjects(1);
    choose("/p");
    EXPECT_EQ(view->contentArea(), ContentArea::projectList);
}

TEST_F(ContentViewTest, NeverShowsTheEmptyStateBetweenTwoStatesOfAScan) {
    addProjects(1);
    choose("/p");
    std::vector<ContentArea> seen;
    const auto look = [&] { seen.push_back(view->contentArea()); };
    const auto a = view->scanner->isScanning.observe(look);
    const auto b = view->scanner->projects.observe(look);
    view->scanner->scan();
    look();
    scene.settle();
    look();
    EXPECT_EQ(seen, std::vector<ContentArea>(seen.size(), ContentArea::projectList));
    EXPECT_EQ(seen.size(), 6U);
}

// The search

TEST_F(ContentViewTest, ListsAllProjectsInTheirOrderForAnEmptySearchText) {
    addProjects(3);
    choose("/p");
    EXPECT_EQ(view->filteredProjects(), view->scanner->projects.get());
}

TEST_F(ContentViewTest, FindsNamesWithoutRegardToCase) {
    disk.addFile("/p/My song 2.xpj");
    disk.addFile("/p/SONGBOOK.xpj");
    disk.addFile("/p/Beat.xpj");
    choose("/p");
    view->searchText.set("SONG");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"My song 2", "SONGBOOK"}));
    view->searchText.set("song");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"My song 2", "SONGBOOK"}));
}

TEST_F(ContentViewTest, UsesTheSearchTextAsTyped) {
    disk.addFile("/p/My song.xpj");
    disk.addFile("/p/Song.xpj");
    choose("/p");
    view->searchText.set(" ");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"My song"}));
    view->searchText.set("song ");
    EXPECT_TRUE(view->filteredProjects().empty());
}

TEST_F(ContentViewTest, SearchesTheNameAlone) {
    disk.addFile("/p/Song.xpj");
    disk.addFolder("/p/Song_[ProjectData]");
    disk.addFile("/p/old.xpj.xpj");
    choose("/p");
    view->searchText.set("ProjectData");
    EXPECT_TRUE(view->filteredProjects().empty());
    view->searchText.set(".xpj");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"old.xpj"}));
    view->searchText.set("/p");
    EXPECT_TRUE(view->filteredProjects().empty());
}

TEST_F(ContentViewTest, ListsNothingIfTheSearchMatchesNothingButCountsAllProjects) {
    addProjects(3);
    choose("/p");
    view->searchText.set("matches nothing");
    EXPECT_TRUE(view->filteredProjects().empty());
    EXPECT_EQ(view->scanner->projects.get().size(), 3U);
    EXPECT_EQ(view->contentArea(), ContentArea::projectList);
}

TEST_F(ContentViewTest, DistinguishesAccentsButNotTheirUnicodeForms) {
    disk.addFile("/p/Caf\u00e9.xpj");
    disk.addFile("/p/Cafe\u0301 2.xpj");
    disk.addFile("/p/Cafe.xpj");
    choose("/p");
    view->searchText.set("caf\u00e9");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"Caf\u00e9", "Cafe\u0301 2"}));
    view->searchText.set("cafe");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"Cafe"}));
}

TEST_F(ContentViewTest, SearchesByTheCaseRulesOfTheLocale) {
    auto services = scene.services();
    services.locale.characters = "tr_TR";
    view = ContentView::create(std::move(services));
    disk.addFile("/p/DIZI.xpj");
    disk.addFile("/p/D\u0130Z\u0130.xpj");
    choose("/p");
    view->searchText.set("dizi");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"D\u0130Z\u0130"}));
    view->searchText.set("d\u0131z\u0131");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"DIZI"}));
}

TEST_F(ContentViewTest, ShowsTheSearchBarFromSixProjectsOn) {
    addProjects(5);
    choose("/p");
    EXPECT_FALSE(view->showsSearchBar());
    addProjects(1, "Sixth ");
    view->scanner->scan();
    EXPECT_FALSE(view->showsSearchBar()) << "the list is empty while a scan runs";
    scene.settle();
    EXPECT_TRUE(view->showsSearchBar());
    view->searchText.set("matches nothing");
    EXPECT_TRUE(view->showsSearchBar());
}

TEST_F(ContentViewTest, KeepsFilteringByAHiddenSearchText) {
    addProjects(8);
    disk.addFolder("/q");
    disk.addFile("/q/Song.xpj");
    disk.addFile("/q/Beat.xpj");
    disk.addFile("/q/Loop.xpj");
    choose("/p");
    view->searchText.set("song");
    choose("/q");
    EXPECT_FALSE(view->showsSearchBar());
    EXPECT_EQ(view->searchText.get(), "song");
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"Song"}));
}

TEST_F(ContentViewTest, KeepsTheSearchTextThroughARescanAndARename) {
    addProjects(6);
    choose("/p");
    view->searchText.set("song 1");
    view->scanner->scan();
    EXPECT_TRUE(view->filteredProjects().empty());
    scene.settle();
    EXPECT_EQ(names(view->filteredProjects()), (Lines{"Song 1"}));
    view->beginRename(project("Song 1"));
    view->newName.set("Beat");
    view->performRename(project("Song 1"));
    scene.mainQueue->advance(3s);
    scene.settle();
    EXPECT_EQ(view->searchText.get(), "song 1");
    EXPECT_TRUE(view->filteredProjects().empty());
}

// The rename flow

class RenameFlow : public ContentViewTest {
protected:
    MPCProject chosenSong() {
        disk.addFile("/p/Song.xpj", "<a>Song_[ProjectData]/k.wav</a>");
        disk.addFolder("/p/Song_[ProjectData]");
        disk.addFile("/p/Other.xpj", "o");
        choose("/p");
        return project("Song");
    }

    void renameTo(const std::string& name) {
        view->beginRename(song);
        view->newName.set(name);
        view->performRename(song);
    }

    MPCProject song = chosenSong();
};

TEST_F(RenameFlow, OpensTheSheetWithTheNameOfTheRowPressedLast) {
    view->beginRename(song);
    EXPECT_EQ(view->newName.get(), "Song");
    EXPECT_EQ(view->renamingProject.get(), song);
    view->newName.set("typed earlier");
    view->cancelRename();
    EXPECT_FALSE(view->renamingProject.get().has_value());
    EXPECT_EQ(view->newName.get(), "typed earlier");
    view->beginRename(project("Other"));
    EXPECT_EQ(view->newName.get(), "Other");
}

TEST_F(RenameFlow, SetsTheNameBeforeItOpensTheSheet) {
    std::string nameWhenOpened = "?";
    const auto watch = view->renamingProject.observe([&] { nameWhenOpened = view->newName.get(); });
    view->beginRename(song);
    EXPECT_EQ(nameWhenOpened, "Song");
}

TEST_F(RenameFlow, OffersARenameOnlyForADifferentNameThatIsNotEmpty) {
    view->beginRename(song);
    EXPECT_FALSE(view->offersRename(song));
    view->newName.set("");
    EXPECT_FALSE(view->offersRename(song));
    view->newName.set("  ");
    EXPECT_TRUE(view->offersRename(song));
    view->newName.set("Song ");
    EXPECT_TRUE(view->offersRename(song));
    view->newName.set("song");
    EXPECT_TRUE(view->offersRename(song));
}

TEST_F(RenameFlow, ClosesTheSheetAndMarksTheRowOnSuccess) {
    renameTo("Beat");
    EXPECT_FALSE(view->renamingProject.get().has_value());
    EXPECT_EQ(view->successProject.get(), song.id());
    EXPECT_FALSE(view->showError.get());
    EXPECT_EQ(disk.disk(), (Lines{"/p/", "/p/Beat.xpj=<a>Beat_[ProjectData]/k.wav</a>", "/p/Beat_[ProjectData]/",
                                  "/p/Other.xpj=o"}));
}

TEST_F(RenameFlow, MarksTheRowBeforeItClosesTheSheet) {
    view->beginRename(song);
    view->newName.set("Beat");
    Lines changes;
    const auto a = view->successProject.observe([&] { changes.emplace_back("successProject"); });
    const auto b = view->renamingProject.observe([&] { changes.emplace_back("renamingProject"); });
    const auto c = view->newName.observe([&] { changes.emplace_back("newName"); });
    const auto d = view->errorMessage.observe([&] { changes.emplace_back("errorMessage"); });
    const auto e = view->showError.observe([&] { changes.emplace_back("showError"); });
    EXPECT_TRUE(view->performRename(song));
    EXPECT_EQ(changes, (Lines{"successProject", "renamingProject"}));
}

TEST_F(RenameFlow, TrimsSpacesButNotLineBreaksFromTheName) {
    renameTo(" \t\u00a0Beat\n ");
    EXPECT_TRUE(disk.fileExists("/p/Beat\n.xpj"));
}

TEST_F(RenameFlow, ScansAgainHalfASecondLaterAndNotEarlier) {
    renameTo("Beat");
    scene.mainQueue->advance(499ms);
    EXPECT_EQ(scene.background->pending(), 0U);
    EXPECT_EQ(names(view->scanner->projects.get()), (Lines{"Other", "Song"})) << "the old name until the rescan";
    scene.mainQueue->advance(1ms);
    EXPECT_EQ(scene.background->pending(), 1U);
    scene.settle();
    EXPECT_EQ(names(view->scanner->projects.get()), (Lines{"Beat", "Other"}));
    EXPECT_EQ(messages(*view->scanner).front(), "Scan complete: 2 project(s)");
    EXPECT_EQ(messages(*view->scanner)[2], "Renamed \"Song\" \u2192 \"Beat\"");
}

TEST_F(RenameFlow, EndsTheHighlightTwoSecondsLaterAndNotEarlier) {
    renameTo("Beat");
    scene.mainQueue->advance(1999ms);
    EXPECT_EQ(view->successProject.get(), song.id());
    scene.mainQueue->advance(1ms);
    EXPECT_FALSE(view->successProject.get().has_value());
}

TEST_F(RenameFlow, LosesTheHighlightedRowWithTheRescanBecauseIdentitiesAreNew) {
    renameTo("Beat");
    scene.mainQueue->advance(500ms);
    scene.settle();
    EXPECT_EQ(view->successProject.get(), song.id());
    EXPECT_NE(project("Beat").id(), song.id());
}

TEST_F(RenameFlow, EndsASecondRenamesHighlightEarlyWithTheFirst) {
    renameTo("Beat");
    scene.mainQueue->advance(1500ms);
    scene.settle();
    song = project("Beat");
    renameTo("Loop");
    EXPECT_EQ(view->successProject.get(), song.id());
    scene.mainQueue->advance(500ms);
    EXPECT_FALSE(view->successProject.get().has_value());
}

TEST_F(RenameFlow, GivesTheNewNameOnceTheScanThatFollowsItIsPublished) {
    renameTo(" Beat ");
    view->scanner->scan();
    scene.settle();
    EXPECT_FALSE(view->listedName.get().has_value()) << "a scan of somebody else's";
    scene.mainQueue->advance(500ms);
    EXPECT_FALSE(view->listedName.get().has_value());
    scene.settle();
    EXPECT_EQ(view->listedName.get(), "Beat");
}

TEST_F(RenameFlow, WaitsForTheScanOfTheLastOfTwoRenames) {
    renameTo("Beat");
    const MPCProject other = project("Other");
    scene.mainQueue->advance(400ms);
    view->beginRename(other);
    view->newName.set("Loop");
    view->performRename(other);
    scene.mainQueue->advance(100ms);
    scene.settle();
    EXPECT_FALSE(view->listedName.get().has_value()) << "that was the first one's scan";
    scene.mainQueue->advance(400ms);
    scene.settle();
    EXPECT_EQ(view->listedName.get(), "Loop");
}

TEST_F(RenameFlow, ForgetsANameThatWasNeverShownWithTheNextRename) {
    renameTo("Beat");
    scene.mainQueue->advance(500ms);
    scene.settle();
    ASSERT_EQ(view->listedName.get(), "Beat");
    song = project("Beat");
    renameTo("Loop");
    EXPECT_FALSE(view->listedName.get().has_value());
}

TEST_F(RenameFlow, GivesNoNameOnFailure) {
    renameTo("Other");
    scene.mainQueue->advance(500ms);
    scene.settle();
    EXPECT_FALSE(view->listedName.get().has_value());
}

TEST_F(RenameFlow, SaysWhetherTheSearchHidesAName) {
    view->searchText.set("song");
    EXPECT_TRUE(view->searchHides("Other"));
    EXPECT_FALSE(view->searchHides("Song"));
    EXPECT_FALSE(view->searchHides("Neither listed nor there"));
}

TEST_F(RenameFlow, ShowsTheReasonAndKeepsSheetAndNameOnFailure) {
    const auto log = messages(*view->scanner);
    view->beginRename(song);
    view->newName.set("Other");
    Lines changes;
    const auto a = view->errorMessage.observe([&] { changes.emplace_back("errorMessage"); });
    const auto b = view->showError.observe([&] { changes.emplace_back("showError"); });
    const auto c = view->renamingProject.observe([&] { changes.emplace_back("renamingProject"); });
    const auto d = view->successProject.observe([&] { changes.emplace_back("successProject"); });
    const auto e = view->newName.observe([&] { changes.emplace_back("newName"); });
    EXPECT_FALSE(view->performRename(song));
    EXPECT_EQ(changes, (Lines{"errorMessage", "showError"}));
    EXPECT_TRUE(view->showError.get());
    EXPECT_EQ(view->alertMessage(), "A project named \"Other\" already exists.");
    EXPECT_EQ(view->newName.get(), "Other");
    EXPECT_EQ(view->renamingProject.get(), song);
    EXPECT_EQ(scene.mainQueue->pending(), 0U) << "no rescan, no log line";
    EXPECT_EQ(messages(*view->scanner), log);
    changes.clear();
    view->dismissAlert();
    EXPECT_EQ(changes, (Lines{"showError"}));
    EXPECT_FALSE(view->showError.get());
}

TEST_F(RenameFlow, FailsForTheCurrentNameEvenWithATrailingSpace) {
    renameTo("Song");
    EXPECT_EQ(view->alertMessage(), "A project named \"Song\" already exists.");
    view->dismissAlert();
    renameTo("Song ");
    EXPECT_TRUE(view->showError.get());
    EXPECT_EQ(view->alertMessage(), "A project named \"Song\" already exists.");
}

TEST_F(RenameFlow, FailsForANameOfSpaces) {
    renameTo("  ");
    EXPECT_EQ(view->alertMessage(), "Invalid name: Name cannot be empty");
}

TEST_F(RenameFlow, FailsForANameThatCannotBeEncoded) {
    renameTo("lone \xed\xa0\xbd surrogate");
    EXPECT_EQ(view->alertMessage(), "Failed to write file: Could not encode updated XML");
    EXPECT_EQ(disk.disk().size(), 4U);
}

TEST_F(RenameFlow, IsCoveredByTheSheetTheAlertAndTheFolderPanel) {
    EXPECT_FALSE(view->isCovered());
    view->beginRename(song);
    EXPECT_TRUE(view->isCovered());
    view->cancelRename();
    EXPECT_FALSE(view->isCovered());
    view->showError.set(true);
    EXPECT_TRUE(view->isCovered());
    view->showError.set(false);
    view->choosesFolder.set(true);
    EXPECT_TRUE(view->isCovered());
}

TEST_F(RenameFlow, CallsAnErrorWithoutATextUnknown) {
    view->showError.set(true);
    EXPECT_EQ(view->alertMessage(), "Unknown error");
}

TEST_F(ContentViewTest, TreatsARenameWithoutAFolderAsASuccess) {
    const MPCProject song("Song", "/p/Song.xpj", std::nullopt, 0, 0);
    view->beginRename(song);
    view->newName.set("Beat");
    view->performRename(song);
    EXPECT_FALSE(view->showError.get());
    EXPECT_EQ(view->successProject.get(), song.id());
    EXPECT_FALSE(view->renamingProject.get().has_value());
    EXPECT_TRUE(disk.traffic().empty());
    scene.mainQueue->advance(2s);
    EXPECT_FALSE(view->successProject.get().has_value());
    EXPECT_TRUE(messages(*view->scanner).empty());
}

TEST_F(RenameFlow, FinishesItsScanAfterTheStateIsGone) {
    renameTo("Beat");
    const auto scanner = view->scanner;
    view.reset();
    scene.mainQueue->advance(2s);
    scene.settle();
    EXPECT_EQ(names(scanner->projects.get()), (Lines{"Beat", "Other"}));
}

TEST_F(RenameFlow, KeepsTheStateAliveUntilTheDelaysEnd) {
    renameTo("Beat");
    const std::weak_ptr<ContentView> weak = view;
    const auto scanner = view->scanner;
    view.reset();
    EXPECT_FALSE(weak.expired());
    scene.mainQueue->advance(500ms);
    scene.settle();
    EXPECT_EQ(names(scanner->projects.get()), (Lines{"Beat", "Other"}));
    scene.mainQueue->advance(1499ms);
    EXPECT_FALSE(weak.expired());
    scene.mainQueue->advance(1ms);
    EXPECT_TRUE(weak.expired());
}

} // namespace
} // namespace tarvolt
