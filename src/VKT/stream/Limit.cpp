#include "VKT/stream/Limit.h"

#include "VKT/stream/NumberText.h"

namespace VKT {

namespace {

f32 ReadLimit(XTextReader& in, std::string_view name, u32 sentinel)
{
    XString token;
    in.ReadToken(token);
    f32 limit = std::bit_cast<f32>(sentinel);
    if (token != name)
        NumberText::ParseDecimal(token, limit);
    return limit;
}

}  // namespace

f32 XReadLowerLimit(XTextReader& in)
{
    return ReadLimit(in, "-INF", kNoLowerLimit);
}

f32 XReadUpperLimit(XTextReader& in)
{
    return ReadLimit(in, "+INF", kNoUpperLimit);
}

void XWriteLimit(XTextWriter& out, f32 limit)
{
    if (IsNoUpperLimit(limit))
        out << "+INF";
    else if (IsNoLowerLimit(limit))
        out << "-INF";
    else
        out << limit;
}

}  // namespace VKT
