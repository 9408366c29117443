#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QLabel>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QToolButton>

#include "core/defines.h"
#include "demo/demoproject.h"
#include "fixture/datafilenames.h"
#include "fixture/project.h"
#include "mapview/tiles.h"
#include "startup/program.h"
#include "support/apptest.h"
#include "support/commands.h"
#include "ui/programfont.h"
#include "ui/wrapcheckbox.h"
#include "warpedit/warpedit.h"

class DemoTest : public AppTest {};

namespace {
// The controls of every window whose text, in its font and wrapped where the
// control wraps, does not fit the room the control gives it.
QStringList TextsThatDoNotFit() {
    QStringList overflows;
    for (QWidget* w : QApplication::allWidgets()) {
        QString text;
        QRect room;
        bool wraps = false;
        QStyleOptionButton option;
        option.initFrom(w);
        if (const auto* label = qobject_cast<QLabel*>(w)) {
            text = label->text();
            room = label->contentsRect().adjusted(label->margin(), label->margin(),
                                                  -label->margin(), -label->margin());
            wraps = label->wordWrap();
        } else if (const auto* wrap = qobject_cast<WrapCheckBox*>(w)) {
            text = wrap->text();
            room = wrap->CaptionRect();
            wraps = true;
        } else if (const auto* tool = qobject_cast<QToolButton*>(w)) {
            // A tool button shows its picture; its name is a tooltip.
            if (tool->toolButtonStyle() != Qt::ToolButtonIconOnly) text = tool->text();
            room = tool->contentsRect();
        } else if (const auto* button = qobject_cast<QAbstractButton*>(w)) {
            text = button->text();
            option.text = text;
            const auto element = qobject_cast<const QCheckBox*>(w) ? QStyle::SE_CheckBoxContents
                                 : qobject_cast<const QRadioButton*>(w)
                                     ? QStyle::SE_RadioButtonContents
                                     : QStyle::SE_PushButtonContents;
            room = w->style()->subElementRect(element, &option, w);
        }
        if (text.isEmpty()) continue;
        const QFontMetrics metrics(w->font());
        const QRect need = metrics.boundingRect(QRect(0, 0, wraps ? room.width() : 100000, 100000),
                                                wraps ? Qt::TextWordWrap : 0, text);
        if (need.width() > room.width() || need.height() > room.height())
            overflows << QStringLiteral("\"%1\" in %2").arg(text, w->window()->windowTitle());
    }
    return overflows;
}
}  // namespace

// Every map of the bundled demo, in both versions, can be reached through the
// lists and "Go" and shows blocks of its tileset, without a message. The
// render command draws a map as the editor's view shows it, in indexed
// colours, as the demo's bank has few. On each map,
// and in each editor and the start-up windows that stay behind the main
// window, every label, button, check box and option button shows its text
// whole in the program's font.
TEST_F(DemoTest, EveryDemoMapOfBothVersionsLoadsAndEveryTextFits) {
    const QFont before = QApplication::font();
    ApplyProgramFont();
    QString error;
    ASSERT_TRUE(Fixture::WriteProject(Fixture::DemoProject(), Folder(), &error))
        << error.toStdString();
    ASSERT_TRUE(Tiles::Bank().Load(PathOf(QStringLiteral("Tiles.png")), error));
    QStringList overflows, told;
    const auto look = [&](const QString& state) {
        for (const QString& o : TextsThatDoNotFit())
            if (!told.contains(o)) told << o, overflows << state + QStringLiteral(": ") + o;
    };
    for (const char* rom : {Fixture::RomFileRed, Fixture::RomFileBlue}) {
        SCOPED_TRACE(rom);
        MainForm* form =
            StartUp(PathOf(QString::fromLatin1(rom)), rom == Fixture::RomFileRed ? 0 : 1);
        ASSERT_NE(form, nullptr) << Script.Texts().join(u'\n').toStdString();
        int maps = 0;
        for (int c = 0; c <= Defines.CategoryCount; ++c) {
            const auto& category = Defines.CategoryTable[c];
            for (int r = 0; r < category[CatMapCount].ToInt16(); ++r, ++maps) {
                GoTo(form, c, r);
                ASSERT_EQ(Defines.CurMap, category[CatFirstMap].ToInt16() + r);
                SCOPED_TRACE(CurMapRow()[MapName].ToText().toStdString());
                EXPECT_EQ(form->CurMapName->text(), CurMapRow()[MapName].ToText());
                for (int y = 1; y <= Defines.MapHeight; ++y)
                    for (int x = 1; x <= Defines.MapWidth; ++x)
                        ASSERT_TRUE(IsBlockRow(Defines.MapGrid[y][x]) &&
                                    Defines.MapGrid[y][x] <= Defines.BlockCount)
                            << x << "," << y;
                look(CurMapRow()[MapName].ToText());
            }
        }
        EXPECT_GE(maps, 8);
        EXPECT_EQ(Script.Count(ScriptedDialogs::Kind::Warning), 0)
            << Script.Texts().join(u'\n').toStdString();
        if (rom == Fixture::RomFileBlue) {
            GoTo(form, 1, 3);
            ASSERT_EQ(CurMapRow()[MapName].ToText(), QStringLiteral("Thornwood"));
            form->View->HScroll->setValue(5);
            form->View->VScroll->setValue(4);
            const QString out = PathOf(QStringLiteral("pictures"));
            const CommandResult result = RunCommand(
                RenderCommand(),
                {QStringLiteral("--game"), QStringLiteral("blue"), QStringLiteral("--map"),
                 QString::number(Defines.CurMap), Folder(), PathOf(QString::fromLatin1(rom)), out});
            ASSERT_EQ(result.Status, 0) << result.Err.toStdString();
            const QImage file(QDir(out).filePath(QStringLiteral("011_Thornwood.png")));
            EXPECT_EQ(file.format(), QImage::Format_Indexed8);
            const auto rgb = [](const QImage& image) {
                return image.convertToFormat(QImage::Format_RGB32);
            };
            EXPECT_TRUE(
                SamePixels(rgb(file).copy(4 * 64, 3 * 64, 8 * 64, 6 * 64),
                           rgb(form->View->MapTile->grab().toImage()).copy(0, 0, 8 * 64, 6 * 64)));
        }
        GoTo(form, 1, 1);    // a road with every editor and a warp-to list
        Script.AnswerYes();  // the wild editor asks at closing
        for (QAction* editor : {form->mnuBlockEdit, form->mnuWildEdit, form->mnuWarpEdit,
                                form->mnuEventEdit, form->mnuAbout}) {
            editor->trigger();
            ChildForm* window = form->findChild<ChildForm*>();
            ASSERT_NE(window, nullptr) << editor->text().toStdString();
            if (auto* warps = qobject_cast<WarpEdit*>(window)) {
                look(QStringLiteral("warps"));
                warps->EditWarpTo->click();
                warps->WarpSym_MouseDown(0);
            }
            look(editor->text());
            CloseWindow(window);
        }
        Program::Reset();
    }
    QApplication::setFont(before);
    EXPECT_TRUE(overflows.isEmpty()) << overflows.join(u'\n').toStdString();
}
