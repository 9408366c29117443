#pragma once

#include <QMenuBar>
#include <QString>
#include <QWidget>

// The base of the program's windows: a fixed client size in twips, a
// caption, centred on the screen, and the lifecycle of load, activation and
// unload.
class Form : public QWidget {
    Q_OBJECT
public:
    explicit Form(QWidget* parent = nullptr);

    // Runs Form_Load once; later calls do nothing. False when Form_Load
    // refused to open the window.
    bool Load();
    // Loads if needed, shows the window centred and runs Form_Activate.
    // False, with nothing shown, when the load refused to open it.
    bool ShowForm();
    void HideForm();
    // Asks Form_Unload; when it does not cancel, the window is hidden and
    // true is returned.
    bool Unload();
    bool IsLoaded() const { return Loaded_; }
    // The client area below the menu bar, which holds the window's controls.
    QWidget* Client() const { return Client_; }
    QMenuBar* MenuBar() const { return MenuBar_; }

protected:
    virtual void Form_Load() {}
    virtual void Form_Activate() {}
    virtual void Form_Unload(bool& Cancel) { Cancel = false; }
    // Called by a Form_Load that finds nothing sound to show: the window
    // then does not open.
    void RefuseLoad() { LoadRefused_ = true; }

    void SetClientSize(int widthTwips, int heightTwips);
    // Gives the window a menu bar above its client area.
    QMenuBar* CreateMenuBar();
    void SetCaption(const QString& caption) { setWindowTitle(caption); }
    // A window without a close box, minimise or maximise button.
    void RemoveCloseBox();
    void Centre();

    void closeEvent(QCloseEvent* event) override;

    // Sizes the window to its client area and menu bar, once the menus are in.
    void FitToClient();

private:
    QWidget* Client_;
    QMenuBar* MenuBar_ = nullptr;
    bool Loaded_ = false;
    bool LoadRefused_ = false;
    bool Centred_ = false;
};
