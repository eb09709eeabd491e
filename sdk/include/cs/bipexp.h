#pragma once

#include "../plugapi.h"

// A part of a biped.
#define SKELOBJ_CLASS_ID Class_ID(0x9125, 0)
