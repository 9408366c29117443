#pragma once

#include <QString>
#include <functional>

class Splash;
class VersionSelect;
class MainForm;

// The program's windows from launch to the main window, and its end. One
// pass through start-up asks for the ROM file and the version, then loads
// the main window; File Open runs a new pass.
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
// 0 after End, 1 after EndOnError.
int ExitStatus();

Splash* SplashForm();
VersionSelect* VersionSelectForm();
MainForm* MainWindow();

// Takes the main window and the splash window down for a new pass through
// start-up; the version window stays with its choice.
void UnloadForNewPass();

// What End does besides closing the windows; the application sets it to stop
// its event loop.
void SetOnEnd(std::function<void()> onEnd);

// Deletes every window and forgets the end, for a fresh start in tests.
void Reset();

// Used by the start-up windows.
void SetMainWindow(MainForm* form);

}  // namespace Program
