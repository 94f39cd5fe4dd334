#pragma once

#include "listbox/OrmiskListBox.h"

namespace ormisk {

class Grid;

// Hears the list of the list editor: its keys go to the host, its choices to the edit session.
class ListInput final : public ListBoxListener {
public:
    explicit ListInput(Grid& grid) : m_Grid(grid) {}

    void OnItemChosen() override;
    void OnListClosed(bool cancelled) override;
    void OnKeyDown(int& keyCode, int shift) override;
    void OnKeyPress(int& keyAscii) override;
    void OnKeyUp(int& keyCode, int shift) override;
    void OnGotFocus() override;
    void OnLostFocus() override;

private:
    void Choose();

    Grid& m_Grid;
};

} // namespace ormisk
