#pragma once

#include "maxtypes.h"

// Frames a second and ticks a frame: their product is TIME_TICKSPERSEC.
CoreExport int GetFrameRate();
CoreExport void SetFrameRate(int rate);
CoreExport int GetTicksPerFrame();
CoreExport void SetTicksPerFrame(int ticks);
