#include "mesh.h"

#include <algorithm>

namespace {

std::size_t Size(int count)
{
    return static_cast<std::size_t>(std::max(count, 0));
}

template <class T>
void Resize(std::vector<T>& items, int count, BOOL keep, const T& value)
{
    if (!keep)
        items.clear();
    items.resize(Size(count), value);
}

template <class T>
T* Shown(std::vector<T>& items)
{
    return items.empty() ? nullptr : items.data();
}

}  // namespace

Mesh::Mesh(const Mesh& other)
    : BaseInterfaceServer(other), m_Verts(other.m_Verts), m_Faces(other.m_Faces), m_Channels(other.m_Channels)
{
    Publish();
}

Mesh& Mesh::operator=(const Mesh& other)
{
    m_Verts = other.m_Verts;
    m_Faces = other.m_Faces;
    m_Channels = other.m_Channels;
    Publish();
    return *this;
}

BOOL Mesh::setNumVerts(int count, BOOL keep, BOOL)
{
    Resize(m_Verts, count, keep, Point3(0, 0, 0));
    Publish();
    return TRUE;
}

BOOL Mesh::setNumFaces(int count, BOOL keep, BOOL)
{
    Resize(m_Faces, count, keep, Face());
    for (Channel& channel : m_Channels)
        if (channel.used)
            Resize(channel.faces, count, keep, TVFace());
    Publish();
    return TRUE;
}

BOOL Mesh::setNumTVFaces(int count, BOOL keep, int oldCount)
{
    setNumMapFaces(1, count, keep, oldCount);
    return TRUE;
}

BOOL Mesh::setNumVCFaces(int count, BOOL keep, int oldCount)
{
    setNumMapFaces(0, count, keep, oldCount);
    return TRUE;
}

void Mesh::setMapSupport(int channel, BOOL on)
{
    if (!on && !mapSupport(channel))
        return;
    if (Channel* made = Made(channel)) {
        if (on)
            Resize(made->faces, numFaces, TRUE, TVFace());
        else
            *made = Channel();
        made->used = on;
        Publish();
    }
}

BOOL Mesh::mapSupport(int channel) const
{
    const Channel* known = Known(channel);
    return known && known->used;
}

void Mesh::setNumMapFaces(int channel, int count, BOOL keep, int)
{
    if (Channel* made = Made(channel)) {
        Resize(made->faces, count, keep, TVFace());
        made->used = true;
        Publish();
    }
}

int Mesh::getNumMapVerts(int channel) const
{
    const Channel* known = Known(channel);
    return known ? static_cast<int>(known->verts.size()) : 0;
}

UVVert* Mesh::mapVerts(int channel) const
{
    return const_cast<UVVert*>(Known(channel) ? Known(channel)->verts.data() : nullptr);
}

TVFace* Mesh::mapFaces(int channel) const
{
    return const_cast<TVFace*>(Known(channel) ? Known(channel)->faces.data() : nullptr);
}

BOOL Mesh::Sized(int channel, int count, BOOL keep)
{
    Channel* made = Made(channel);
    if (!made)
        return FALSE;
    Resize(made->verts, count, keep, UVVert(0, 0, 0));
    Publish();
    return TRUE;
}

Mesh::Channel* Mesh::Made(int channel)
{
    if (channel < 0 || channel >= MAX_MESHMAPS)
        return nullptr;
    if (m_Channels.size() <= Size(channel))
        m_Channels.resize(Size(channel) + 1);
    return &m_Channels[Size(channel)];
}

const Mesh::Channel* Mesh::Known(int channel) const
{
    return channel >= 0 && Size(channel) < m_Channels.size() ? &m_Channels[Size(channel)] : nullptr;
}

void Mesh::Publish()
{
    numVerts = static_cast<int>(m_Verts.size());
    verts = Shown(m_Verts);
    numFaces = static_cast<int>(m_Faces.size());
    faces = Shown(m_Faces);
    numCVerts = getNumMapVerts(0);
    vertCol = numCVerts > 0 ? mapVerts(0) : nullptr;
    vcFace = mapSupport(0) ? mapFaces(0) : nullptr;
    numTVerts = getNumMapVerts(1);
    tVerts = numTVerts > 0 ? mapVerts(1) : nullptr;
    tvFace = mapSupport(1) ? mapFaces(1) : nullptr;
}
