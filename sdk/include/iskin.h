#pragma once

#include "animtbl.h"

#define SKIN_CLASSID Class_ID(9815843, 87654)

// For Animatable::GetInterface(ULONG).
#define I_SKIN 0x00010000
#define I_SKINIMPORTDATA 0x00020000
