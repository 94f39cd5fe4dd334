# The rule sources of each folder, relative to src/. A unit listed here includes no Windows header.
set(RULE_SOURCES
  grid/RowLayout.cpp
  editors/TextRules.cpp
  model/FoldedKey.cpp
  model/KeyFold.cpp
  model/NumberText.cpp
  platform/AccessKey.cpp
  platform/Color.cpp
  platform/Scale.cpp
  platform/SplitterGeometry.cpp
  platform/TextForms.cpp
  platform/VersionText.cpp
  tree/CategoryPath.cpp
  tree/RowCounts.cpp
  ../host/KeySequence.cpp
  ../host/Options.cpp
)
