#pragma once

#include "VKT/node/NodeClass.h"

namespace VKT {

// Stands for a shader program of the graphics hardware. It stores nothing of its own:
// materials name it (`hw_shader`), and what it holds are its extra attributes.
class XHwShader : public XNodeClass<XHwShader, XBase, kFnHwShader> {
public:
    using XNodeClass::XNodeClass;
};

}  // namespace VKT
