#include "host/materials/Materials.h"

#include "host/materials/BitmapTexture.h"
#include "host/materials/MultiMaterial.h"
#include "host/materials/StandardMaterial.h"

namespace maxhost {

void AddMaterialClasses(ClassDirectory& classes)
{
    classes.AddBuiltIn(std::make_unique<BuiltInClass<Mtl, StandardMaterial>>("Standard", MATERIAL_CLASS_ID,
                                                                             Class_ID(DMTL_CLASS_ID, 0)));
    classes.AddBuiltIn(std::make_unique<BuiltInClass<Mtl, MultiMaterial>>(
        "Multi/Sub-Object", MATERIAL_CLASS_ID, Class_ID(MULTI_CLASS_ID, 0)));
    classes.AddBuiltIn(std::make_unique<BuiltInClass<Texmap, BitmapTexture>>("Bitmap", TEXMAP_CLASS_ID,
                                                                             Class_ID(BMTEX_CLASS_ID, 0)));
    classes.AddBuiltIn(std::make_unique<BuiltInClass<UVGen, UVGenerator>>("Coordinates", UVGEN_CLASS_ID,
                                                                          Class_ID(STDUV_CLASS_ID, 0)));
}

}  // namespace maxhost

BitmapTex* NewDefaultBitmapTex()
{
    return maxhost::SceneObjects::Adopt(new maxhost::BitmapTexture);
}
