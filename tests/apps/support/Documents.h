#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

// A square of two triangles with a uv set, hung under one bone. The bytes are what the
// library writes for it, so that a conversion can be compared with them.
inline const std::string kPlate =
    "|VKT_004A#0000#00000000|\n"
    "POLYGON_MESH plateShape\n"
    "{\n"
    "\tid 2\n"
    "\tpoints 4\n"
    "\t\t0 0 0\n"
    "\t\t1 0 0\n"
    "\t\t1 1 0\n"
    "\t\t0 1 0.5\n"
    "\tdeformer_queue 0\n"
    "\tintermediate_object 0\n"
    "\tpoint_index_set \"points\"\n"
    "\tPOLY_COUNTS 2\n"
    "\t{\n"
    "\t\t3\n"
    "\t\t3\n"
    "\t}\n"
    "\tnum_index_sets 2\n"
    "\tINDEX_SET \"points\"\n"
    "\t{\n"
    "\t\t0 1 2 \n"
    "\t\t0 2 3 \n"
    "\t}\n"
    "\tINDEX_SET \"uvset1\"\n"
    "\t{\n"
    "\t\t0 1 0 \n"
    "\t\t1 0 1 \n"
    "\t}\n"
    "\tnum_vertex_sets 1\n"
    "\tVERTEX_SET \"uvset1\"\n"
    "\t{\n"
    "\t\tnum_elements 2\n"
    "\t\telement_size 2\n"
    "\t\tusage kTexCoord\n"
    "\t\tindex_set \"uvset1\"\n"
    "\t\telements\n"
    "\t\t\t0 0 \n"
    "\t\t\t1 0.25 \n"
    "\t}\n"
    "}\n"
    "BONE plate\n"
    "{\n"
    "\tid 1\n"
    "\tvisible\t1\n"
    "\tscale_pivot\t0 0 0\n"
    "\trotate_pivot\t0 0 0\n"
    "\tmin_bound\t0 0 0\n"
    "\tmax_bound\t0 0 0\n"
    "\tscale\t1 1 1\n"
    "\ttranslate\t0 2.5 0\n"
    "\trotation_orient\t0 0 0 1\n"
    "\trotation\t0 0 0 1\n"
    "\tjoint_orient\t0 0 0 1\n"
    "\tbind_pose_matrix\n"
    "\t\t1 0 0 0\n"
    "\t\t0 1 0 0\n"
    "\t\t0 0 1 0\n"
    "\t\t0 2.5 0 1\n"
    "\trotation_order xyz\n"
    "\tinherits_transform 1\n"
    "\tshearing 0 0 0\n"
    "\trotate_pivot_translate\t0 0 0\n"
    "\tscale_pivot_translate\t0 0 0\n"
    "\ttranslate_limit_x -INF +INF\n"
    "\ttranslate_limit_y -INF +INF\n"
    "\ttranslate_limit_z -INF +INF\n"
    "\trotate_limit_x -INF +INF\n"
    "\trotate_limit_y -INF +INF\n"
    "\trotate_limit_z -INF +INF\n"
    "\tscale_limit_x -INF +INF\n"
    "\tscale_limit_y -INF +INF\n"
    "\tscale_limit_z -INF +INF\n"
    "\tparent 0\n"
    "\tchild_joints 0\n"
    "\tINSTANCE_LIST\n"
    "\t{\n"
    "\t\tINSTANCE plateShape {\n"
    "\t\t\tobject_id 2\n"
    "\t\t\tnum_uv_sets 0\n"
    "\t\t}\n"
    "\t}\n"
    "}\n";

// kPlate with a chunk of no known key in front of the bone.
inline std::string PlateWithUnknownChunk()
{
    std::string text = kPlate;
    return text.insert(text.find("BONE"), "FLAVOUR sweet\n{\n\tstrength { 3 }\n}\n");
}

// `text` with the first `what` in it replaced; it must be there.
inline std::string With(std::string text, const std::string& what, const std::string& with)
{
    const std::size_t at = text.find(what);
    EXPECT_NE(at, std::string::npos) << what;
    return at == std::string::npos ? text : text.replace(at, what.size(), with);
}

// Chunks to build documents from, behind this header.
inline const std::string kHeader = "|VKT_004A#0000#00000000|\n";

inline std::string Ids(const std::vector<int>& ids)
{
    std::string text;
    for (const int id : ids)
        text += std::to_string(id) + " ";
    return text;
}

// `instances` are blocks as `Instance` makes them. Names hold no blanks.
inline std::string Bone(const std::string& name, int id, int parent, const std::vector<int>& children = {},
                        const std::string& instances = "")
{
    const std::size_t begin = kPlate.find("\tvisible");
    const std::size_t end = kPlate.find("\tparent 0\n");
    std::string text = "BONE " + name + "\n{\n\tid " + std::to_string(id) + "\n";
    text += kPlate.substr(begin, end - begin);
    text += "\tparent " + std::to_string(parent) + "\n";
    text += "\tchild_joints " + std::to_string(children.size()) + "\n";
    if (!children.empty())
        text += "\t\t" + Ids(children) + "\n";
    return text + "\tINSTANCE_LIST\n\t{\n" + instances + "\t}\n}\n";
}

inline std::string Instance(const std::string& name, int shape, const std::string& materials = "")
{
    return "\t\tINSTANCE " + name + " {\n\t\t\tobject_id " + std::to_string(shape) +
           "\n\t\t\tnum_uv_sets 0\n" + materials + "\t\t}\n";
}

// The square of `kPlate`.
inline std::string Mesh(const std::string& name, int id, const std::vector<int>& deformers = {})
{
    const std::size_t begin = kPlate.find("\tpoints 4");
    const std::size_t middle = kPlate.find("\tdeformer_queue");
    const std::size_t rest = kPlate.find("\tintermediate_object");
    const std::size_t end = kPlate.find("BONE");
    return "POLYGON_MESH " + name + "\n{\n\tid " + std::to_string(id) + "\n" +
           kPlate.substr(begin, middle - begin) + "\tdeformer_queue " + std::to_string(deformers.size()) +
           " " + Ids(deformers) + "\n" + kPlate.substr(rest, end - rest);
}

inline std::string Lambert(const std::string& name, int id)
{
    return "LAMBERT " + name + "\n{\n\tid " + std::to_string(id) +
           "\n\thw_shader 0\n"
           "\tcolour 1 0 0 1 input 0\n"
           "\tambient_colour 0 0 0 1 input 0\n"
           "\tincandescence 0 0 0 1 input 0\n"
           "\ttransparency 0 0 0 1 input 0\n"
           "\tbump_map 0\n"
           "\tenv_map 0\n}\n";
}

inline std::string Wave(const std::string& name, int id, const std::vector<int>& affected)
{
    return "NONLINEAR_WAVE " + name + "\n{\n\tid " + std::to_string(id) + "\n\taffected " +
           std::to_string(affected.size()) + " " + Ids(affected) +
           "\n\tenvelope_weight 1\n\thandle 0\n\tmax_radius 4\n\tmin_radius 0\n\tamplitude 1\n"
           "\twavelength 2\n\tdropoff 0\n\tdropoff_position 0\n\toffset 0\n}\n";
}
