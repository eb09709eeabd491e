#pragma once

#include <string_view>
#include <vector>

#include "VKT/support/VocabularyRows.h"

namespace VKT::Test {

// A class with attributes of its own. It knows those of the class that it is chained to as
// well, which need not be its base.
struct VocabularyTable {
    const char* type;
    const char* chainedTo;  // empty for none
    u32 total;              // what the class reports as the number of its properties
};

// clang-format off
inline constexpr VocabularyTable kVocabularyTables[] = {
    {"animCycle",            "",                  4},
    {"bone",                 "",                  55},
    {"joint",                "bone",              56},
    {"deformer",             "",                  2},
    {"blendShape",           "deformer",          5},
    {"skinCluster",          "deformer",          7},
    {"material",             "",                  2},
    {"surfaceShader",        "material",          3},
    {"lambert",              "material",          7},
    {"specular",             "lambert",           9},
    {"anisotropic",          "specular",          16},
    {"blinn",                "specular",          11},
    {"phongE",               "specular",          11},
    {"geometry",             "",                  3},
    {"texturePlacement2D",   "",                  20},
    {"bumpMap",              "",                  2},
    {"envMap",               "",                  1},
    {"cubeMap",              "envMap",            8},
    {"sphereMap",            "envMap",            2},
    {"field",                "bone",              66},
    {"air",                  "field",             73},
    {"drag",                 "field",             68},
    {"gravity",              "field",             67},
    {"newton",               "field",             67},
    {"radial",               "field",             67},
    {"turbulence",           "field",             68},
    {"uniformField",         "field",             67},
    {"volumeAxis",           "field",             78},
    {"vortex",               "field",             67},
    {"emitter",              "bone",              79},
    {"constraint",           "bone",              58},
    {"aimConstraint",        "constraint",        61},
    {"lookAt",               "aimConstraint",     64},
    {"normalConstraint",     "constraint",        60},
    {"orientConstraint",     "constraint",        59},
    {"pointConstraint",      "constraint",        59},
    {"poleVectorConstraint", "pointConstraint",   60},
    {"scaleConstraint",      "constraint",        59},
    {"tangentConstraint",    "constraint",        60},
    {"cluster",              "deformer",          5},
    {"ffd",                  "deformer",          4},
    {"jiggleDeformer",       "deformer",          12},
    {"jointCluster",         "deformer",          5},
    {"nonLinear",            "deformer",          3},
    {"nonLinearBend",        "nonLinear",         6},
    {"nonLinearFlare",       "nonLinear",         10},
    {"nonLinearSine",        "nonLinear",         9},
    {"nonLinearSquash",      "nonLinear",         10},
    {"nonLinearTwist",       "nonLinear",         7},
    {"nonLinearWave",        "nonLinear",         10},
    {"sculptDeformer",       "deformer",          10},
    {"wireDeformer",         "deformer",          9},
    {"wrapDeformer",         "deformer",          9},
    {"nodeCollection",       "",                  1},
    {"ikChain",              "",                  10},
    {"layeredShader",        "material",          7},
    {"objectSet",            "nodeCollection",    2},
    {"baseLattice",          "",                  3},
    {"camera",               "",                  5},
    {"collisionObject",      "",                  2},
    {"collisionBox",         "collisionObject",   5},
    {"collisionCapsule",     "collisionObject",   4},
    {"collisionCone",        "collisionObject",   4},
    {"collisionCylinder",    "collisionObject",   4},
    {"collisionMesh",        "collisionObject",   4},
    {"collisionSphere",      "collisionObject",   3},
    {"lattice",              "geometry",          8},
    {"parametricSurface",    "geometry",          7},
    {"nurbsSurface",         "parametricSurface", 11},
    {"parametricCurve",      "geometry",          4},
    {"nurbsCurve",           "parametricCurve",   6},
    {"particleShape",        "geometry",          10},
    {"light",                "",                  6},
    {"ambientLight",         "light",             9},
    {"extendedLight",        "light",             13},
    {"directionalLight",     "extendedLight",     14},
    {"spotLight",            "extendedLight",     28},
    {"volumeLight",          "extendedLight",     15},
    {"volumeBox",            "",                  3},
    {"volumeCone",           "",                  2},
    {"volumeCylinder",       "",                  2},
    {"volumeSphere",         "",                  1},
};

// Classes that bring none and have the vocabulary of another.
struct SharedVocabulary {
    const char* type;
    const char* owner;
};

inline constexpr SharedVocabulary kSharedVocabularies[] = {
    {"texturePlacement3D", "bone"},
    {"useBackground",      "material"},
    {"rampShader",         "surfaceShader"},
    {"phong",              "specular"},
    {"mesh",               "geometry"},
    {"polygonMesh",        "geometry"},
    {"parametricBase",     "geometry"},
    {"geometryConstraint", "constraint"},
    {"parentConstraint",   "constraint"},
    {"displayLayer",       "nodeCollection"},
    {"renderLayer",        "nodeCollection"},
    {"bezierPatch",        "parametricSurface"},
    {"hermitePatch",       "parametricSurface"},
    {"bezierCurve",        "parametricCurve"},
    {"hermiteCurve",       "parametricCurve"},
    {"areaLight",          "extendedLight"},
    {"pointLight",         "extendedLight"},
};
// clang-format on

// Classes without any. The first five have the empty property object.
inline constexpr const char* kNoVocabulary[] = {
    "base",  "animationTake", "hwShader",     "mv",      "shadingNode",
    "shape", "locator",       "volumeObject", "texture", "layeredTexture",
};

// The table that a class answers by, null for none.
inline const VocabularyTable* FindVocabulary(std::string_view type)
{
    for (const SharedVocabulary& shared : kSharedVocabularies)
        if (shared.type == type)
            return FindVocabulary(shared.owner);
    for (const VocabularyTable& table : kVocabularyTables)
        if (table.type == type)
            return &table;
    return nullptr;
}

// What a class knows: the rows of its table, then those of the tables that it is chained to.
inline std::vector<VocabularyRow> ListVocabulary(std::string_view type)
{
    std::vector<VocabularyRow> rows;
    for (const VocabularyTable* table = FindVocabulary(type); table; table = FindVocabulary(table->chainedTo))
        for (const VocabularyRow& row : kVocabularyRows)
            if (std::string_view(row.type) == table->type)
                rows.push_back(row);
    return rows;
}

}  // namespace VKT::Test
