#pragma once

#include "VKT/shading/EnvMap.h"

namespace VKT {

// The surroundings on the six faces of a cube. A dynamic one is rendered anew all the time;
// its text form leaves the images out.
class XCubeMap : public XNodeClass<XCubeMap, XEnvMap, kFnCubeMap> {
public:
    explicit XCubeMap(XModel* model);

    bool IsDynamic() const { return m_Dynamic; }
    void SetDynamic(bool dynamic) { m_Dynamic = dynamic; }

    // The ids of the images of the faces.
    u32 GetLeft() const { return GetImage(kLeft); }
    void SetLeft(u32 id) { SetImage(kLeft, id); }
    u32 GetRight() const { return GetImage(kRight); }
    void SetRight(u32 id) { SetImage(kRight, id); }
    u32 GetTop() const { return GetImage(kTop); }
    void SetTop(u32 id) { SetImage(kTop, id); }
    u32 GetBottom() const { return GetImage(kBottom); }
    void SetBottom(u32 id) { SetImage(kBottom, id); }
    u32 GetFront() const { return GetImage(kFront); }
    void SetFront(u32 id) { SetImage(kFront, id); }
    u32 GetBack() const { return GetImage(kBack); }
    void SetBack(u32 id) { SetImage(kBack, id); }

    bool WriteChunk(XTextWriter& out) const override;
    bool ReadFields(XTextReader& in) override;

    static XBodyTable TextBody();
    static XBodyTable BinaryBody();
    static XPropertyTable Properties();

private:
    enum Face : u32 { kLeft = 0, kRight = 1, kTop = 2, kBottom = 3, kFront = 4, kBack = 5 };
    static XBodyTable FacesBody();

    bool m_Dynamic = false;
};

}  // namespace VKT
