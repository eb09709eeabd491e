#pragma once

#include "ref.h"

class IParamBlock;

// Numbered parameters of the old style. Not an Animatable.
class CoreExport IParamArray {
public:
    // The block, when the array is one.
    virtual IParamBlock* GetParamBlock() { return nullptr; }

protected:
    ~IParamArray() = default;  // not virtual: nobody deletes a block through it
};
