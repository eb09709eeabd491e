#pragma once

#include "impexp.h"

// What the host hands to an exporter besides the interface. It holds nothing yet.
class CoreExport ExpInterface {};
