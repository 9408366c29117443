#include <QFile>
#include <QTest>

#include "core/defines.h"
#include "support/apptest.h"
#include "wildedit/wildedit.h"

namespace {

constexpr int RomSize = 32 * 1024;

const QString Saved = QStringLiteral("Your changes to the wild Morlick have been saved!");
const QString Discard = QStringLiteral("Discard the changes you have made?");

// Slot 4 holds code 99, which no species of the file names.
const Fixture::EncounterList List = {{{0, 0x10},
                                      {128, 0x80},
                                      {255, 0xFF},
                                      {5, 0x10},
                                      {7, 0x99},
                                      {9, 0x00},
                                      {10, 0x80},
                                      {11, 0x10},
                                      {12, 0xFF},
                                      {13, 0x00}}};

Fixture::SmallProject WildProject() {
    Fixture::SmallProject project(RomSize);
    project.AddTileset(3, 0);
    const int cat = project.AddCategory(QStringLiteral("Wilds"), 0);
    const int map =
        project.AddMap(cat, QStringLiteral("Listed"), 2, 2, 0, [](int, int) { return 1; });
    project.AddWildList(map, List);
    // The file's order is free; the list follows the places.
    project.Species = {{0x10, QStringLiteral("Sixteen"), 2},
                       {0xFF, QStringLiteral("Top"), 4},
                       {0x80, QStringLiteral("Eighty"), 1},
                       {0x00, QStringLiteral("Zero"), 3}};
    return project;
}

}  // namespace

class WildEditTest : public AppTest {
protected:
    void SetUp() override {
        AppTest::SetUp();
        Form = StartUp(Project);
        ASSERT_NE(Form, nullptr);
    }
    int ListPos() const { return Project.Categories[0].Maps[0].WildPos; }

    Fixture::SmallProject Project = WildProject();
    MainForm* Form = nullptr;
};

TEST_F(WildEditTest, ShowsTheListWithNamesFromTheSpeciesFileAndSavesExactlyTheTwentyBytes) {
    Form->mnuWildEdit->trigger();
    WildEdit* w = ShownWindow<WildEdit>(Form);
    ASSERT_NE(w, nullptr) << Script.Texts().join(u'|').toStdString();
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Wild Morlick Editor"));
    // Slot 4's code has no species: an empty name.
    const QStringList names = {"Sixteen", "Eighty", "Top",     "Sixteen", "",
                               "Zero",    "Eighty", "Sixteen", "Top",     "Zero"};
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(w->MorlName[i]->text(), names[i]) << i;
        EXPECT_EQ(w->MorlLevel[i]->text(), QStringLiteral("Level %1").arg(List[i].Level)) << i;
    }
    ASSERT_EQ(w->SelMorl->count(), 4);
    EXPECT_EQ(w->SelMorl->itemText(0), QStringLiteral("Eighty"));
    EXPECT_EQ(w->SelMorl->itemText(3), QStringLiteral("Top"));
    // Slot 0 is shown: code 10 at place 2.
    EXPECT_TRUE(w->MorlNum[0]->isChecked());
    EXPECT_EQ(w->SelMorl->currentIndex(), 1);
    EXPECT_EQ(w->SelLevel->text(), QStringLiteral("0"));
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 10"));
    // A code without a species: no selection, a hex of 0.
    w->MorlNum[4]->click();
    EXPECT_EQ(w->SelMorl->currentIndex(), -1);
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 0"));
    w->MorlNum[2]->click();
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: FF"));
    EXPECT_EQ(w->SelLevel->text(), QStringLiteral("255"));

    // Behind the window's back the ROM changes at both ends of the list and
    // just outside it: the save puts back the list, and only the list.
    const int first = ListPos();
    const int last = first + 19;
    for (const int p : {first - 1, first, last, last + 1})
        PutRomByte(p, 0xEE);
    const QByteArray before = ReadFile(Defines.RomPath);

    // Slot 3 gets the species at place 1 and a typed level of 256, which the
    // box holds to 255; the other slots stay.
    w->MorlNum[3]->click();
    w->SelMorl->setFocus();
    QTest::keyClick(w->SelMorl, Qt::Key_Up);
    w->SelLevel->selectAll();
    QTest::keyClicks(w->SelLevel, QStringLiteral("256"));
    EXPECT_EQ(w->SelLevel->text(), QStringLiteral("255"));
    EXPECT_EQ(w->MorlName[3]->text(), QStringLiteral("Eighty"));
    EXPECT_EQ(w->MorlLevel[3]->text(), QStringLiteral("Level 255"));
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 80"));

    Script.AnswerNo();
    QTest::mouseClick(w->Command1, Qt::LeftButton);
    EXPECT_EQ(Script.Count(Saved), 1) << Script.Texts().join(u'|').toStdString();
    const QByteArray after = ReadFile(Defines.RomPath);
    const int slot3 = first + 6;
    EXPECT_EQ(Differences(before, after), (std::vector<int>{first, slot3, slot3 + 1, last}));
    EXPECT_EQ(after[first - 1], 0);  // slot 0's level, as read
    EXPECT_EQ(static_cast<quint8>(after[slot3 - 1]), 255);
    EXPECT_EQ(static_cast<quint8>(after[slot3]), 0x80);
    EXPECT_EQ(after[last - 1], 0x00);  // slot 9's species, as read

    // This window asks at every closing, right after a save too.
    Script.AnswerNo();
    EXPECT_FALSE(CloseWindow(w));
    Script.AnswerYes();
    ASSERT_TRUE(CloseWindow(w));
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Script.Count(Discard), 2);
}
