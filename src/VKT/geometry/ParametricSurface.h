#pragma once

#include <memory>

#include "VKT/geometry/ParametricBase.h"
#include "VKT/geometry/TrimData.h"

namespace VKT {

// The base of surfaces: a net of control vertices in two directions, u and v, and what is
// trimmed away.
class XParametricSurface : public XNodeClass<XParametricSurface, XParametricBase, kFnParametricSurface> {
public:
    using XNodeClass::XNodeClass;

    u16 GetNumCvsU() const { return m_NumCvsU; }
    void SetNumCvsU(u16 count) { m_NumCvsU = count; }
    u16 GetNumCvsV() const { return m_NumCvsV; }
    void SetNumCvsV(u16 count) { m_NumCvsV = count; }
    // Numbers that the library passes on; they have no table of kinds.
    u8 GetTypeU() const { return m_TypeU; }
    void SetTypeU(u8 type) { m_TypeU = type; }
    u8 GetTypeV() const { return m_TypeV; }
    void SetTypeV(u8 type) { m_TypeV = type; }

    bool IsTrimmed() const { return m_TrimData != nullptr; }
    // Null for an untrimmed surface.
    const XTrimData* GetTrimData() const { return m_TrimData.get(); }
    void SetTrimData(std::unique_ptr<XTrimData> trimData) { m_TrimData = std::move(trimData); }

    bool DoData(XFileIO& file) override;
    void DoCopy(const XBase* source) override;
    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    // The text form has the trim data alone; XNurbsSurface adds the rest to its own.
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

protected:
    u16 m_NumCvsU = 0;
    u16 m_NumCvsV = 0;
    u8 m_TypeU = 0;
    u8 m_TypeV = 0;

private:
    std::unique_ptr<XTrimData> m_TrimData;
};

}  // namespace VKT
