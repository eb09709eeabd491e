#include "host/materials/MultiMaterial.h"

namespace maxhost {

void MultiMaterial::Update(TimeValue t, Interval& valid)
{
    for (const auto& material : m_Materials)
        if (material->Get())
            material->Get()->Update(t, valid);
}

void MultiMaterial::SetNumSubMtls(int count)
{
    const std::size_t size = static_cast<std::size_t>(count > 0 ? count : 0);
    if (size < m_Materials.size())
        m_Materials.resize(size);
    while (m_Materials.size() < size)
        m_Materials.push_back(std::make_unique<Reference<Mtl>>(*this));
}

Mtl* MultiMaterial::GetSubMtl(int i)
{
    return i >= 0 && i < NumSubMtls() ? m_Materials[static_cast<std::size_t>(i)]->Get() : nullptr;
}

void MultiMaterial::SetSubMtl(int i, Mtl* material)
{
    if (i >= NumSubMtls())
        SetNumSubMtls(i + 1);
    m_Materials[static_cast<std::size_t>(i)]->Set(material);
}

Color MultiMaterial::GetAmbient(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetAmbient() : Color(0.0f, 0.0f, 0.0f);
}

Color MultiMaterial::GetDiffuse(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetDiffuse() : Color(0.0f, 0.0f, 0.0f);
}

Color MultiMaterial::GetSpecular(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetSpecular() : Color(0.0f, 0.0f, 0.0f);
}

float MultiMaterial::GetShininess(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetShininess() : 0.0f;
}

float MultiMaterial::GetShinStr(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetShinStr() : 0.0f;
}

float MultiMaterial::GetXParency(int i, BOOL)
{
    Mtl* material = GetSubMtl(i);
    return material ? material->GetXParency() : 0.0f;
}

}  // namespace maxhost

MultiMtl* NewDefaultMultiMtl()
{
    return maxhost::SceneObjects::Adopt(new maxhost::MultiMaterial);
}
