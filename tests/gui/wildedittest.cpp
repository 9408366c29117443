#include <QFile>
#include <QTest>

#include "core/defines.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "support/apptest.h"
#include "wildedit/wildedit.h"

namespace {

constexpr int RomSize = 32 * 1024;

// Map rows of the project.
enum { Listed, PastTheEnd, Unlisted, AtTheEnd };

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
    for (const char* name : {"Listed", "Past the end", "Unlisted", "At the end"})
        project.AddMap(cat, QString::fromLatin1(name), 2, 2, 0, [](int, int) { return 1; });
    project.AddWildList(Listed, List);
    project.Map(PastTheEnd).WildPos = RomSize - 18;  // one byte too far
    project.Map(AtTheEnd).WildPos = RomSize - 19;    // its last byte is the ROM's
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
    // Goes to a map and chooses the editor from the menu; the window on
    // screen, or nullptr.
    WildEdit* Open(int map = Listed) {
        GoTo(Form, 0, map);
        Form->mnuWildEdit->trigger();
        for (WildEdit* w : Form->findChildren<WildEdit*>())
            if (w->isVisible()) return w;
        return nullptr;
    }
    bool Close(WildEdit* window) {
        const bool closed = window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return closed;
    }
    // Types into the level box as a user does, after selecting its text.
    static void Type(WildEdit* w, const QString& keys) {
        w->SelLevel->selectAll();
        QTest::keyClicks(w->SelLevel, keys);
    }
    int ListPos() const { return Project.Categories[0].Maps[Listed].WildPos; }
    void PutRomByte(int position, quint8 value) {
        QFile file(Defines.RomPath);
        ASSERT_TRUE(file.open(QIODevice::ReadWrite));
        file.seek(position - 1);
        file.write(reinterpret_cast<const char*>(&value), 1);
    }

    Fixture::SmallProject Project = WildProject();
    MainForm* Form = nullptr;
};

TEST_F(WildEditTest, OpensOnTheListWithNamesFromTheSpeciesFile) {
    EXPECT_TRUE(Form->mnuWildEdit->isEnabled());  // the first map has a list
    WildEdit* w = Open();
    ASSERT_NE(w, nullptr) << Script.Texts().join(u'|').toStdString();
    EXPECT_FALSE(Form->isVisible());
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Wild Morlick Editor"));
    const QStringList names = {QStringLiteral("Sixteen"),
                               QStringLiteral("Eighty"),
                               QStringLiteral("Top"),
                               QStringLiteral("Sixteen"),
                               QString(),
                               QStringLiteral("Zero")};
    for (int i = 0; i < names.size(); ++i)
        EXPECT_EQ(w->MorlName[i]->text(), names[i]) << i;
    EXPECT_EQ(w->MorlLevel[0]->text(), QStringLiteral("Level 0"));
    EXPECT_EQ(w->MorlLevel[2]->text(), QStringLiteral("Level 255"));
    ASSERT_EQ(w->SelMorl->count(), 4);
    EXPECT_EQ(w->SelMorl->itemText(0), QStringLiteral("Eighty"));
    EXPECT_EQ(w->SelMorl->itemText(3), QStringLiteral("Top"));
    // Slot 0 is shown: code 10 at place 2.
    EXPECT_TRUE(w->MorlNum[0]->isChecked());
    EXPECT_EQ(w->SelMorl->currentIndex(), 1);
    EXPECT_EQ(w->SelLevel->text(), QStringLiteral("0"));
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 10"));
    // A code without a species: no selection, an empty name, a hex of 0.
    w->MorlNum[4]->click();
    EXPECT_EQ(w->SelMorl->currentIndex(), -1);
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 0"));
    EXPECT_EQ(w->WildData[4].Species, 0x99);
    w->MorlNum[5]->click();
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: 0"));
    w->MorlNum[2]->click();
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: FF"));
    EXPECT_EQ(w->SelLevel->text(), QStringLiteral("255"));
}

TEST_F(WildEditTest, SaveRewritesExactlyTheTwentyBytes) {
    WildEdit* w = Open();
    ASSERT_NE(w, nullptr);
    // Behind the window's back the ROM changes at both ends of the list and
    // just outside it: the save puts back the list, and only the list.
    const int first = ListPos();
    const int last = first + 19;
    for (const int p : {first - 1, first, last, last + 1})
        PutRomByte(p, 0xEE);
    const QByteArray before = ReadFile(Defines.RomPath);

    // Slot 3 gets the species at place 4 and level 42; the other slots stay.
    w->MorlNum[3]->click();
    w->SelMorl->setFocus();
    QTest::keyClick(w->SelMorl, Qt::Key_Down);  // place 3: Zero
    QTest::keyClick(w->SelMorl, Qt::Key_Down);  // place 4: Top
    Type(w, QStringLiteral("42"));
    EXPECT_EQ(w->MorlName[3]->text(), QStringLiteral("Top"));
    EXPECT_EQ(w->MorlLevel[3]->text(), QStringLiteral("Level 42"));
    EXPECT_EQ(w->MorlHex->text(), QStringLiteral("Morlick's Hex Value: FF"));
    EXPECT_EQ(w->MorlName[0]->text(), QStringLiteral("Sixteen"));
    EXPECT_EQ(w->MorlLevel[4]->text(), QStringLiteral("Level 7"));

    Script.AnswerNo();
    QTest::mouseClick(w->Command1, Qt::LeftButton);
    EXPECT_EQ(Script.Count(Saved), 1) << Script.Texts().join(u'|').toStdString();
    const QByteArray after = ReadFile(Defines.RomPath);
    ASSERT_EQ(after.size(), before.size());
    const int slot3 = first + 6;
    EXPECT_EQ(Differences(before, after), (std::vector<int>{first, slot3, slot3 + 1, last}));
    EXPECT_EQ(static_cast<quint8>(after[first - 1]), 0);  // slot 0's level, as read
    EXPECT_EQ(static_cast<quint8>(after[slot3 - 1]), 42);
    EXPECT_EQ(static_cast<quint8>(after[slot3]), 0xFF);
    EXPECT_EQ(static_cast<quint8>(after[first + 8]), 0x99);  // slot 4 keeps its code
    EXPECT_EQ(static_cast<quint8>(after[last - 1]), 0x00);   // slot 9's species, as read
    EXPECT_EQ(static_cast<quint8>(after[first - 2]), 0xEE);
    EXPECT_EQ(static_cast<quint8>(after[last]), 0xEE);

    // Reopened, the window shows what was saved.
    Script.AnswerYes();
    ASSERT_TRUE(Close(w));
    w = Open();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(w->MorlName[3]->text(), QStringLiteral("Top"));
    EXPECT_EQ(w->MorlLevel[3]->text(), QStringLiteral("Level 42"));
}

TEST_F(WildEditTest, TypedLevelsFollowTheNumberRule) {
    WildEdit* w = Open();
    ASSERT_NE(w, nullptr);
    w->MorlNum[3]->click();  // level 5
    struct Step {
        const char* keys;  // typed over the selected text; "\b" is a backspace
        const char* box;
        int level;
    };
    const Step steps[] = {
        {"3", "3", 3},
        {"30", "30", 30},
        {"300", "255", 255},  // "3", "30", then "300" is held to 255
        {"256", "255", 255},
        {"7 ", "7", 7},  // the blank is trimmed away
        {"12.9", "12.9", 12},
        {"abc", "12", 12},  // each letter brings the level back
        {"8", "8", 8},
        {"\b", "8", 8},  // the box cannot be emptied
        {" ", "8", 8},
        {"-1", "81", 81},  // a lone "-" is no number: the level comes back first
    };
    for (const Step& s : steps) {
        SCOPED_TRACE(s.keys);
        if (QString::fromLatin1(s.keys) == QStringLiteral("\b")) {
            w->SelLevel->end(false);
            QTest::keyClick(w->SelLevel, Qt::Key_Backspace);
        } else {
            Type(w, QString::fromLatin1(s.keys));
        }
        EXPECT_EQ(w->SelLevel->text(), QString::fromLatin1(s.box));
        EXPECT_EQ(w->WildData[3].Level, s.level);
        EXPECT_EQ(w->MorlLevel[3]->text(), QStringLiteral("Level %1").arg(s.level));
    }
    // Pasted whole, as a user may: a sign and an exponent read as numbers.
    for (const auto& [text, box, level] : {std::tuple{"-1", "0", 0},
                                           {" 7 ", "7", 7},
                                           {"1e2", "1e2", 100},
                                           {"-0.5", "0", 0},
                                           {"1e999", "255", 255}}) {
        w->SelLevel->selectAll();
        w->SelLevel->insert(QString::fromLatin1(text));
        EXPECT_EQ(w->SelLevel->text(), QString::fromLatin1(box)) << text;
        EXPECT_EQ(w->WildData[3].Level, level) << text;
    }
    // Only slot 3 changed.
    EXPECT_EQ(w->WildData[2].Level, 255);
    EXPECT_EQ(w->WildData[4].Level, 7);
}

TEST_F(WildEditTest, ClosingAsksEveryTime) {
    WildEdit* w = Open();
    ASSERT_NE(w, nullptr);
    Script.AnswerNo();
    EXPECT_FALSE(Close(w));
    EXPECT_TRUE(w->isVisible());
    EXPECT_FALSE(Form->isVisible());
    // Right after a save too.
    Script.AnswerNo();  // no backup
    QTest::mouseClick(w->Command1, Qt::LeftButton);
    Script.AnswerYes();
    EXPECT_TRUE(Close(w));
    EXPECT_TRUE(Form->isVisible());
    EXPECT_EQ(Script.Count(Discard), 2);
    EXPECT_EQ(Script.Count(Saved), 1);
    EXPECT_TRUE(Script.ScriptUsedUp());
}

TEST_F(WildEditTest, WhatCannotBeReadKeepsTheWindowShut) {
    const QByteArray rom = ReadFile(Defines.RomPath);
    // A list that ends with the ROM opens; one a byte longer does not.
    WildEdit* w = Open(AtTheEnd);
    ASSERT_NE(w, nullptr);
    Script.AnswerYes();
    ASSERT_TRUE(Close(w));
    EXPECT_EQ(Open(PastTheEnd), nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 1);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QString::number(RomSize - 18)));
    EXPECT_TRUE(Form->isVisible());

    // A species file cut short, then one that is missing.
    const QString file = PathOf(QString::fromLatin1(Fixture::MorlickFile));
    ASSERT_TRUE(Fixture::WriteFile(file, "2\n\"10\",\"Sixteen\",1\n"));
    EXPECT_EQ(Open(), nullptr);
    ASSERT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 2);
    EXPECT_TRUE(Script.Transcript().back().text.contains(QStringLiteral("Morlick.twy")));
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(Open(), nullptr);
    EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 3);
    EXPECT_TRUE(Form->isVisible());
    EXPECT_TRUE(Form->findChildren<WildEdit*>().isEmpty() ||
                !Form->findChildren<WildEdit*>().front()->isVisible());
    EXPECT_EQ(ReadFile(Defines.RomPath), rom);

    // The main window goes on working.
    GoTo(Form, 0, Unlisted);
    EXPECT_FALSE(Form->mnuWildEdit->isEnabled());
}
