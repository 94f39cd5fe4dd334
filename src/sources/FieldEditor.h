#pragma once

#include "model/CProperty.h"
#include "sources/Recordset.h"

namespace ormisk {

// Which editor a field's row gets, by the field's type. A value that no editor takes is read-only.
omEditorType EditorTypeForField(const RecordField& field, bool& readOnly);
// The parameters of the row's editor.
void ConfigureFieldRow(const RecordField& field, CProperty& row);

} // namespace ormisk
