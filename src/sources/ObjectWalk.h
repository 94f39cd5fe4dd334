#pragma once

#include "model/CProperties.h"
#include "sources/KnownTypes.h"
#include "sources/MemberCategory.h"
#include "sources/StandardControlProperties.h"
#include "sources/WriteTest.h"

namespace ormisk {

// Where the walk puts its rows. Any call may run the host's code, which can clear the rows, load others or end it all.
class InspectionRows {
public:
    virtual bool IsOpen() const = 0; // false once there is nothing left to be filled
    // Ends the present edit by cancel and removes all rows. Raises.
    virtual void Clear() = 0;
    // The host may change the category and the editor, and drop the row. Raises.
    virtual void RaiseAddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType,
                                     bool& cancel) = 0;
    // Raises when the row may not exist; null when there is none for other reasons.
    virtual ComPtr<CProperty> Add(CProperty* parent, const NewProperty& row) = 0;
    virtual bool HasKey(const std::wstring& key) const = 0;

protected:
    ~InspectionRows() = default;
};

// Makes a row of each readable, parameterless, browsable property of an object, and child rows of those that are
// objects themselves; of a control on a form also the properties that the form gives it. What fails is passed over.
class ObjectWalk {
public:
    ObjectWalk(InspectionRows& rows, KnownTypes& types) : m_Rows(rows), m_Types(types) {}
    ObjectWalk(const ObjectWalk&) = delete;
    ObjectWalk& operator=(const ObjectWalk&) = delete;

    // `depth` levels of objects; of less than 1 nothing happens. True when the walk reached its end, as it does of any
    // object. Raises what the clearing raises.
    bool InspectObject(CProperty* parent, IDispatch* target, bool clear, bool autoUpdate, long depth);

private:
    // An object whose members become rows. Objects in objects are walked from a list of levels, not by recursion: an
    // object that contains itself fills any depth.
    struct Level {
        ComPtr<CProperty> parent; // null at the top
        IUnknown* parentValue = nullptr;
        ComPtr<IDispatch> object; // as it was passed
        ComPtr<IDispatch> target; // whose members are read: of a control on a form the inner control
        ComPtr<ICategorizeProperties> categories;
        bool onForm = false;
        bool autoUpdate = true;
        long depth = 0;
        KnownTypes::Type type;
        std::vector<const SearchItem*> items;
        std::size_t nextItem = 0;
        std::size_t nextStandard = 0;
        // The row that was made last; what remains to be set on it is set after its children were made.
        ComPtr<CProperty> row;
        const MemberInfo* rowMember = nullptr;
        const StandardProperty* rowStandard = nullptr;
    };

    void Enter(CProperty* parent, IDispatch* object, bool autoUpdate, long depth);
    void EnterValueOf(CProperty& row, const Level& level);
    bool Advance(Level& level);
    void FinishRow(Level& level);
    bool IsOpen(const Level& level) const;

    void AddMember(Level& level, const SearchItem& item);
    void AddMemberRow(Level& level, const MemberInfo& member, NewProperty& row);
    bool AddStandardControlProperties(Level& level);
    void AddStandardProperty(Level& level, const StandardProperty& standard);
    // False when the host drops the row.
    bool RaiseAddingProperty(const std::wstring& name, std::wstring& category, omEditorType& editorType);

    InspectionRows& m_Rows;
    KnownTypes& m_Types;
    std::vector<std::unique_ptr<Level>> m_Levels;
};

} // namespace ormisk
