#pragma once

#include "picker/OrmiskSwatch.h"

namespace ormisk {

class Grid;

// Hears the colour field of the colour editor: its keys go to the host, its picks to the edit session.
class ColorInput final : public SwatchListener {
public:
    explicit ColorInput(Grid& grid) : m_Grid(grid) {}

    void OnSelectedColorChanged() override;
    void OnPaletteOpened() override;
    void OnPaletteClosed() override;
    DialogHost* Dialogs() override;
    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;
    void OnGotFocus() override;
    void OnLostFocus() override;

private:
    Grid& m_Grid;
    unsigned m_Start = 0; // of the editor whose palette was opened
};

} // namespace ormisk
