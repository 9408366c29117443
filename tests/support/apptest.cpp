#include "support/apptest.h"

#include <QApplication>
#include <QFile>
#include <QTest>

#include "core/defines.h"
#include "startup/program.h"
#include "startup/splash.h"
#include "startup/versionselect.h"

void AppTest::SetUp() {
    ASSERT_TRUE(Dir_.isValid());
    Program::Reset();
    Defines.Reset();
    Defines.ProgramFolder = Dir_.path();
    SetDialogs(&Script);
}

void AppTest::TearDown() {
    Program::Reset();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    SetDialogs(nullptr);
}

QString AppTest::PathOf(const QString& name) const {
    return Dir_.filePath(name);
}

MainForm* AppTest::StartUp(const QString& romPath, int versionRow) {
    Script.ChooseFile(romPath);
    Program::Main();
    if (Program::Ended()) return nullptr;
    VersionSelect* version = Program::VersionSelectForm();
    if (!version) return nullptr;
    version->VersionList->setCurrentRow(versionRow);
    version->Command1_Click();
    Splash* splash = Program::SplashForm();
    if (!splash) return nullptr;
    splash->Timer1_Timer();
    if (Program::Ended()) return nullptr;
    return Program::MainWindow();
}

MainForm* AppTest::StartUp(const Fixture::SmallProject& project) {
    const QString rom = project.Write(Folder());
    if (rom.isEmpty()) {
        ADD_FAILURE() << "the test's program folder could not be written";
        return nullptr;
    }
    return StartUp(rom);
}

void AppTest::GoTo(MainForm* form, int category, int mapRow) {
    PressRow(form->CatList, category);
    PressRow(form->MapList, mapRow);
    form->Command2->click();
}

bool CloseWindow(QWidget* window) {
    const bool closed = window->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return closed;
}

void AppTest::PutRomByte(int position, quint8 value) {
    QFile file(Defines.RomPath);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.seek(position - 1);
    file.write(reinterpret_cast<const char*>(&value), 1);
}

std::vector<int> AppTest::Differences(const QByteArray& before, const QByteArray& after) {
    std::vector<int> positions;
    const qsizetype common = std::min(before.size(), after.size());
    for (qsizetype i = 0; i < common; ++i)
        if (before[i] != after[i]) positions.push_back(static_cast<int>(i + 1));
    if (before.size() != after.size()) positions.push_back(static_cast<int>(common + 1));
    return positions;
}

void PressCell(CellArray* cells, int index, Qt::MouseButton button) {
    QTest::mousePress(cells, button, Qt::NoModifier, cells->CellCentre(index));
}

void PressRow(QListWidget* list, int row) {
    list->scrollToItem(list->item(row));
    const QRect rect = list->visualItemRect(list->item(row));
    QTest::mousePress(list->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
    QTest::mouseRelease(list->viewport(), Qt::LeftButton, Qt::NoModifier, rect.center());
}
