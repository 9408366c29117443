#pragma once

#include <functional>

class Splash;
class VersionSelect;
class MainForm;

// The program's windows from launch to the main window, and its end. One
// pass through start-up asks for the ROM file and the version, then loads
// the main window; File Open runs a new pass.
namespace Program {

// The entry: creates the splash window, whose load asks for the ROM file.
void Main();
// Ends the program at once: every window goes and the event loop stops.
void End();
bool Ended();

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
