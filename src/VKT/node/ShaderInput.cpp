#include "VKT/node/ShaderInput.h"

#include "VKT/stream/FileIO.h"
#include "VKT/stream/TextSyntax.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {

void XShaderInput::Write(XTextWriter& out) const
{
    out << '\t' << name << ' ' << colour.r << ' ' << colour.g << ' ' << colour.b << ' ' << colour.a
        << " input " << XNodeId{input};
}

// A number that fails to come is seen at the next key.
bool XShaderInput::Read(XTextReader& in, const char* source, int line)
{
    if (!Expect(name, in, source, line))
        return false;
    in.ReadArray(&colour.r, 4);
    if (!Expect("input", in, source, line))
        return false;
    in.Read(input);
    return true;
}

bool XShaderInput::DoData(XFileIO& file)
{
    return file.DoId(input) && file.DoData(colour) && file.DoData(name);
}

}  // namespace VKT
