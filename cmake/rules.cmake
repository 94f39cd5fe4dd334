# The rule sources of each folder, relative to src/. A unit listed here includes no Windows header.
set(RULE_SOURCES
)
