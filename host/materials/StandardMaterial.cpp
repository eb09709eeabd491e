#include "host/materials/StandardMaterial.h"

#include <utility>

namespace maxhost {

namespace {

template <class Slots, std::size_t... i>
Slots MakeSlots(ReferenceMaker& maker, std::index_sequence<i...>)
{
    return Slots{(static_cast<void>(i), typename Slots::value_type(maker))...};
}

}  // namespace

StandardMaterial::StandardMaterial()
    : m_Slots(MakeSlots<std::array<Slot, NTEXMAPS>>(*this, std::make_index_sequence<NTEXMAPS>()))
{
}

void StandardMaterial::SetSubTexmap(int slot, Texmap* map)
{
    At(slot).map.Set(map);
    At(slot).on = map != nullptr;
}

}  // namespace maxhost

StdMat2* NewDefaultStdMat()
{
    return maxhost::SceneObjects::Adopt(new maxhost::StandardMaterial);
}
