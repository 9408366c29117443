#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <array>
#include <cstdint>

#include "core/limits.h"
#include "core/morlickfile.h"
#include "ui/childform.h"
#include "wildedit/wildlist.h"

// The wild encounter editor: the ten level and species pairs of the current
// map's wild list, with the species named from Morlick.twy.
class WildEdit : public ChildForm {
    Q_OBJECT
public:
    explicit WildEdit(Form* owner);

    QGroupBox* Frame1;
    std::array<QRadioButton*, Limits::WildSlots> MorlNum{};
    std::array<QLabel*, Limits::WildSlots> MorlName{};
    std::array<QLabel*, Limits::WildSlots> MorlLevel{};
    QGroupBox* Frame2;
    QLabel* Label1;
    QComboBox* SelMorl;
    QLabel* MorlHex;
    QLabel* Label3;
    QLineEdit* SelLevel;
    QPushButton* Command1;

    // State of this window, read anew at each opening.
    WildList WildData{};
    std::int16_t CurSlot = 0;
    MorlickTables Morlick;

    // Handlers.
    void MorlNum_Click(int index);
    void SelMorl_Click(int index);
    void SelLevel_Change(const QString& text);
    void Command1_Click();

protected:
    void Form_Load() override;
    void Form_Unload(bool& Cancel) override;

private:
    void ShowHex();
};
