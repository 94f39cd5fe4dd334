# The rule sources of each folder, relative to src/. A unit listed here includes no Windows header.
set(RULE_SOURCES
  platform/AccessKey.cpp
  platform/Color.cpp
  platform/Scale.cpp
  platform/SplitterGeometry.cpp
  platform/TextForms.cpp
  platform/VersionText.cpp
  ../host/KeySequence.cpp
  ../host/Options.cpp
)
