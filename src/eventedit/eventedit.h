#pragma once

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QPushButton>
#include <array>
#include <cstdint>
#include <vector>

#include "core/eventtables.h"
#include "eventedit/eventlist.h"
#include "mapview/placementview.h"
#include "ui/childform.h"

// The event editor: the current map's events of one type at a time, placed
// on half-block squares of the map, with their fields typed in. Everything a
// type is comes from its row of EventTypes.twy and from Events.twy.
class EventEdit : public ChildForm {
    Q_OBJECT
public:
    // `gridlines` is the main window's gridline setting, which the view starts with.
    EventEdit(Form* owner, bool gridlines);

    // The placement view: MapTile, HScroll, VScroll, Shape2, Line1 to Line26
    // and the 32 symbols EventSym.
    PlacementView* Placement;
    std::vector<Symbol*>& EventSym;

    QGroupBox* Frame1;
    QListWidget* SelType;
    QPushButton* Command2;
    QGroupBox* Frame2;
    QLabel* DEventNum;
    QLabel* Label1;
    QLineEdit* TextString;
    QLabel* Label2;
    QLineEdit* PictureNum;
    QLabel* Label3;
    QLineEdit* Move1;
    QLabel* Label4;
    QLineEdit* Move2;
    QLabel* Label5;
    QLineEdit* Item;
    QLabel* Label6;
    QLineEdit* MorlData;
    QLabel* Label7;
    QLineEdit* TrainerType;
    QGroupBox* Frame3;
    QCheckBox* CheckGrid;
    QPushButton* Command1;

    QPixmap EventNon;
    QPixmap EventSel;

    // State of this window, read anew at each opening.
    EventTypeTableT EventTypeTable;
    std::int16_t LastEventType = -1;
    EventAddressTableT EventAddressTable;
    std::int16_t CurEventType = 0;
    std::int16_t EventCount = 0;
    EventTable Events{};
    std::int16_t SelEvent = 0;
    bool EventsChanged = false;

    // Handlers.
    void EventSym_MouseDown(int index);
    void MapTile_MouseDown(int index);
    // The change handler of the seven field boxes, told which box it serves
    // (0 to 6, in the order TextString, PictureNum, Move1, Move2, Item,
    // MorlData, TrainerType).
    void FieldBox_Change(int box, const QString& text);
    void Command2_Click();
    void Command1_Click();
    void CheckGrid_Click();

    // The half-block square of a row: its x and y fields, the type's bias off.
    QPoint EntrySquare(int row) const;

protected:
    void Form_Load() override;
    void Form_Activate() override;
    void Form_Unload(bool& Cancel) override;

private:
    struct FieldBox {
        QLabel* Label;
        QLineEdit* Box;
        EventTypeColumn Column;
    };
    void BuildControls();
    // Reads the list of a type into the window and draws it over the map as
    // the main window holds it. False, after a message, when the type or its
    // list cannot be read; nothing changes then.
    bool LoadEventMap(int type);
    void DrawEventMap();
    void ShowFields();
    // A byte's name for messages: x, y, one of the seven fields, or its number.
    QString FieldName(int field) const;

    std::array<FieldBox, 7> Boxes_{};
    EventLayout Layout_;
    EventListPlace Place_;
    // The row of CurEventType can be used. Only a type 0 whose row cannot
    // is in the window without: then it shows no event, and no click or
    // save reaches a list.
    bool TypeUsable_ = true;
    bool Gridlines_;
};
