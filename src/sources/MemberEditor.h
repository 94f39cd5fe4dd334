#pragma once

#include "model/CProperty.h"
#include "sources/TypeInformation.h"

namespace ormisk {

// The parameter and its value that offer picture files.
extern const wchar_t kFilterParam[];
extern const wchar_t kPictureFilter[];

// Which editor a member's row gets, by the type of its value.
omEditorType EditorTypeForMember(const MemberInfo& member);
// The member's help, and its editor: its type, parameters and list items.
void ApplyMemberInfo(const MemberInfo& member, CProperty& row);

} // namespace ormisk
