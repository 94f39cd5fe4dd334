#include "RecordsetTools.h"
