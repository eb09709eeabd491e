#include "VKT/node/Attribute.h"

#include <algorithm>
#include <type_traits>

#include "VKT/base/Logger.h"
#include "VKT/document/Model.h"
#include "VKT/stream/FileIO.h"

namespace VKT {
namespace {

static_assert(std::variant_size_v<XAttributeValue> == kAttributeMatrixArray - kAttributeBool + 1);

template <class T>
inline constexpr bool kIsList = false;
template <class T>
inline constexpr bool kIsList<XVector<T>> = true;

template <std::size_t Index>
using Value = std::variant_alternative_t<Index, XAttributeValue>;

// A value of the given type, empty or zero. The type is one of the enumeration.
template <std::size_t Index = 0>
XAttributeValue EmptyValue(std::size_t index)
{
    if constexpr (Index < std::variant_size_v<XAttributeValue>)
        return index == Index ? XAttributeValue(std::in_place_index<Index>, Value<Index>{})
                              : EmptyValue<Index + 1>(index);
    else
        return {};
}

bool DoConnections(XFileIO& file, XVector<XConnection>& connections)
{
    constexpr u64 kLeastBytes = 10;  // two numbers and an empty name
    return file.DoEach(connections, kLeastBytes, [&](XConnection& connection) {
        return file.DoData(connection.m_Node) && file.DoData(connection.m_Index) &&
               file.DoData(connection.m_Attribute);
    });
}

}  // namespace

void XAttribute::SetType(u32 type)
{
    m_Value = EmptyValue(type - kAttributeBool);
}

u32 XAttribute::Size() const
{
    return std::visit(
        [](const auto& value) -> u32 {
            using T = std::decay_t<decltype(value)>;
            if constexpr (kIsList<T>)
                return static_cast<u32>(value.size());
            else if constexpr (std::is_same_v<T, XMessageArray>)
                return static_cast<u32>(std::max(0, value.count));
            else
                return 1;
        },
        m_Value);
}

const XConnection* XAttribute::FindInput(u32 element) const
{
    const auto found = std::find_if(m_Inputs.begin(), m_Inputs.end(),
                                    [=](const XConnection& input) { return input.m_Index == element; });
    return found == m_Inputs.end() ? nullptr : &*found;
}

const XConnection* XAttribute::FindOutput(u32 element, u32 n) const
{
    for (const XConnection& output : m_Outputs)
        if (output.m_Index == element && n-- == 0)
            return &output;
    return nullptr;
}

u32 XAttribute::NumOutputs(u32 element) const
{
    return static_cast<u32>(std::count_if(m_Outputs.begin(), m_Outputs.end(), [=](const XConnection& output) {
        return output.m_Index == element;
    }));
}

XBase* XAttribute::GetInput(const XModel& model, u32 element) const
{
    const XConnection* input = FindInput(element);
    return input ? model.FindNode(input->m_Node) : nullptr;
}

XString XAttribute::GetInputAttribute(const XModel& model, u32 element) const
{
    return GetInput(model, element) ? FindInput(element)->m_Attribute : "";
}

XBase* XAttribute::GetOutput(const XModel& model, u32 element, u32 n) const
{
    const XConnection* output = FindOutput(element, n);
    return output ? model.FindNode(output->m_Node) : nullptr;
}

XString XAttribute::GetOutputAttribute(const XModel& model, u32 element, u32 n) const
{
    return GetOutput(model, element, n) ? FindOutput(element, n)->m_Attribute : "";
}

bool XAttribute::SetInput(u32 element, u32 node, const XString& attribute)
{
    const XConnection input{node, element, attribute};
    if (const XConnection* found = FindInput(element))
        m_Inputs[static_cast<std::size_t>(found - m_Inputs.data())] = input;
    else
        m_Inputs.push_back(input);
    return true;
}

bool XAttribute::AddOutput(u32 element, u32 node, const XString& attribute)
{
    const XConnection output{node, element, attribute};
    if (std::find(m_Outputs.begin(), m_Outputs.end(), output) != m_Outputs.end())
        return false;
    m_Outputs.push_back(output);
    return true;
}

void XAttribute::NodeDeath(XModel& model, u32 id)
{
    const auto names = [=](const XConnection& connection) { return connection.m_Node == id; };
    if (model.GetDeleteFlags().Test(DeleteConnectionInputs))
        std::erase_if(m_Inputs, names);
    if (model.GetDeleteFlags().Test(DeleteConnectionOutputs))
        std::erase_if(m_Outputs, names);
}

bool XAttribute::DoData(XFileIO& file)
{
    u32 type = GetType();
    if (!file.DoData(type))
        return false;
    if (type < kAttributeBool || type > kAttributeMatrixArray) {
        GetLogger()->LogFormat(kError, "%d is no type of an extra attribute", static_cast<int>(type));
        return false;
    }
    if (file.IsReading())
        SetType(type);
    if (!file.DoData(m_Name) || !DoValue(file))
        return false;
    return file.IsBelow(3) || (DoConnections(file, m_Inputs) && DoConnections(file, m_Outputs));
}

bool XAttribute::DoValue(XFileIO& file)
{
    return std::visit(
        [&](auto& value) -> bool {
            using T = std::decay_t<decltype(value)>;
            if constexpr (std::is_same_v<T, XMessage>)
                return true;
            else if constexpr (std::is_same_v<T, XMessageArray>)
                return file.IsBelow(3) || file.DoData(value.count);
            else if constexpr (std::is_same_v<T, XInt2> || std::is_same_v<T, XInt3> ||
                               std::is_same_v<T, XInt4>)
                return file.DoData(value.data(), value.size()) != 0;
            else
                return file.DoData(value) != 0;
        },
        m_Value);
}

}  // namespace VKT
