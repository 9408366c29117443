#pragma once

#include <QString>
#include <functional>

class Splash;
class VersionSelect;
class MainForm;

// The program's windows from launch to the main window, and its end. One
// pass through start-up asks for the ROM file and the version, reads the
// data files and the ROM's first map, then makes the main window; File Open
// runs a new pass while the ROM open before stays, hidden, until the new one
// has been read whole.
namespace Program {

// The entry: creates the splash window, whose load asks for the ROM file.
// A ROM given here (from the command line) is taken as if it had been chosen
// in that dialog, on this pass only.
void Main(const QString& initialRom = {});
// The ROM given to Main, once; empty when none was given or it has been taken.
QString TakeInitialRom();
// Ends the program at once: every window goes and the event loop stops.
void End();
// The same, after a start-up that could not go on: the program ends with
// a status that tells of a failure.
void EndOnError();
bool Ended();
// 0 after End; 1 after EndOnError, or when a start-up whose ROM could not be
// read was given up.
int ExitStatus();

Splash* SplashForm();
VersionSelect* VersionSelectForm();
MainForm* MainWindow();

// File Open: hides the main window, keeping it and the working state of its
// ROM, and runs a new pass through start-up.
void OpenAnotherRom();
// The user gave the pass up (cancelled the open dialog, closed the version
// question): back to the ROM open before, as it was; at the first start the
// program ends.
void GiveUpPass();
// The pass could not read the ROM or the data files, and has said so: back to
// the ROM open before, as it was; at the first start the open dialog comes
// again.
void PassFailed();
// The pass has read the new ROM whole and made its main window: the window of
// the ROM before goes, and this one is the main window from now on.
void TakeMainWindow(MainForm* form);

// What End does besides closing the windows; the application sets it to stop
// its event loop.
void SetOnEnd(std::function<void()> onEnd);

// Deletes every window and forgets the end, for a fresh start in tests.
void Reset();

}  // namespace Program
