#include "VKT/registry/UserNode.h"

#include "VKT/stream/TextReader.h"
#include "VKT/stream/TextWriter.h"

namespace VKT {
namespace {

constexpr std::string_view kExtraAttributesKey = "EXTRA_ATTRIBUTES";

bool IsBlank(std::string_view text)
{
    return text.find_first_not_of(" \t\r") == std::string_view::npos;
}

}  // namespace

bool ReadRawBody(XTextReader& in, XString& data)
{
    data.clear();
    bool isFirstLine = true;
    for (u32 depth = 1;;) {
        const int c = in.Get();
        if (c < 0) {
            in.SetFailed();
            return false;
        }
        if (c == '\n' && isFirstLine) {
            isFirstLine = false;
            if (IsBlank(data)) {  // the end of the line in front of the body
                data.clear();
                continue;
            }
        }
        depth += c == '{';
        depth -= c == '}';
        if (depth == 0) {
            in.HandBack("} ");
            break;
        }
        data += static_cast<char>(c);
        if (std::string_view(data).ends_with(kExtraAttributesKey)) {
            data.resize(data.size() - kExtraAttributesKey.size());
            in.HandBack("EXTRA_ATTRIBUTES ");
            data.resize(data.find_last_not_of(" \t") + 1);
            break;
        }
    }
    if (isFirstLine && IsBlank(data))
        data.clear();
    return true;
}

void WriteRawBody(const XString& data, XTextWriter& out)
{
    if (data.empty())
        return;
    out << data;
    if (data.back() != '\n')
        out << '\n';
}

}  // namespace VKT
