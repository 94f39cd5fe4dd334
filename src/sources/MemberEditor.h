#pragma once

#include "model/CProperty.h"
#include "sources/TypeInformation.h"

namespace ormisk {

// The parameter and its value that offer picture files.
extern const wchar_t kFilterParam[];
extern const wchar_t kPictureFilter[];

// Which editor a member's row gets, by the type of its value.
omEditorType EditorTypeForMember(const MemberInfo& member);
// The same, carried out on the row: its editor type, parameters and list items.
void ConfigurePropertyEditor(const MemberInfo& member, CProperty& row);
// The member's help, then its editor.
void ApplyMemberInfo(const MemberInfo& member, CProperty& row);

} // namespace ormisk
