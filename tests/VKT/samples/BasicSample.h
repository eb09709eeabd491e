#pragma once

namespace VKT::Test {

// A polygon mesh with its material and a wave that deforms it, a bone, a joint and a spot
// light. Ids 1 to 99. See Samples.h.
inline constexpr char kBasicSample[] =
    R"(|VKT_004A#0000#00000000|
LAMBERT clay
{
	id 1
	hw_shader 101
	colour 0.11 0.12 0.13 0.14 input 102
	ambient_colour 0.15 0.16 0.17 0.18 input 103
	incandescence 0.21 0.22 0.23 0.24 input 104
	transparency 0.25 0.26 0.27 0.28 input 105
	bump_map 106
	env_map 107
}
POLYGON_MESH body
{
	id 2
	points 4
		1 2 3
		4 5 6
		7 8 9
		-1.5 1e-05 2.5e+10
	deformer_queue 2 6 108
	intermediate_object 1
	point_index_set "points"
	POLY_COUNTS 2
	{
		3
		4
	}
	num_index_sets 2
	INDEX_SET "points"
	{
		0 1 2 
		2 1 3 0 
	}
	INDEX_SET "map1"
	{
		10 11 12 
		-13 14 15 16 
	}
	num_vertex_sets 2
	VERTEX_SET "uvs"
	{
		num_elements 2
		element_size 2
		usage kTexCoord
		index_set "map1"
		elements
			0.5 0.25 
			0.75 -1 
	}
	VERTEX_SET "normals"
	{
		num_elements 1
		element_size 3
		usage kNormal
		index_set "points"
		elements
			0.1 0.2 0.3 
	}
}
SPOT_LIGHT lamp
{
	id 3
	colour		0.31 0.32 0.33
	intensity	34
	shadow_colour	0.35 0.36 0.37
	emit_ambient 1
	emit_diffuse 1
	emit_specular 1
	use_depth_map_shadows	1
	cast_soft_shadows	1
	shadow_radius	38
	decay_rate	39
	depth_map_filter_size	40
	depth_map_resolution	41
	depth_map_bias	42
	cone_angle	43
	penumbra_angle	44
	drop_off	45
	barn_doors	1
		left_barn_door_angle	46
		right_barn_door_angle	47
		top_barn_door_angle	48
		bottom_barn_door_angle	49
	use_decay_regions	1
		decay_1	50 51
		decay_2	52 53
		decay_3	54 55
}
BONE hip
{
	id 4
	visible	0
	scale_pivot	1 2 3
	rotate_pivot	4 5 6
	min_bound	7 8 9
	max_bound	10 11 12
	scale	2 4 8
	translate	16 17 18
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		2 0 0 0
		188 -4 0 0
		384 -392 -8 0
		-1410 1206 48 1
	rotation_order zyx
	inherits_transform 0
	shearing 47 48 49
	rotate_pivot_translate	50 51 52
	scale_pivot_translate	53 54 55
	translate_limit_x 56 57
	translate_limit_y 58 59
	translate_limit_z 60 61
	rotate_limit_x 62 63
	rotate_limit_y 64 65
	rotate_limit_z 66 67
	scale_limit_x 68 69
	scale_limit_y 70 71
	scale_limit_z 72 73
	parent 0
	child_joints 1
		5 
	INSTANCE_LIST
	{
		INSTANCE seen {
			object_id 2
			num_uv_sets 0
			MATERIAL_GROUP {
				material_id 1
				num_face_indices 2
					0 1 
			}
			MATERIAL_GROUP {
				material_id 0
				num_face_indices 0
					
			}
		}
		INSTANCE lamp {
			object_id 3
			num_uv_sets 0
			material 1
		}
	}
}
JOINT knee
{
	id 5
	visible	0
	scale_pivot	2 3 4
	rotate_pivot	5 6 7
	min_bound	8 9 10
	max_bound	11 12 13
	scale	1.5 2.5 3.5
	translate	14 15 16
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		1.5 0 0 0
		0 2.5 0 0
		0 0 3.5 0
		14 15 16 1
	rotation_order yzx
	inherits_transform 0
	shearing 17 18 19
	rotate_pivot_translate	20 21 22
	scale_pivot_translate	23 24 25
	translate_limit_x 26 +INF
	translate_limit_y -INF 27
	translate_limit_z 28 29
	rotate_limit_x 30 31
	rotate_limit_y 32 33
	rotate_limit_z 34 35
	scale_limit_x 36 37
	scale_limit_y 38 39
	scale_limit_z 40 41
	parent 4
	child_joints 1
		109 
	INSTANCE_LIST
	{
	}
	segment_scale_compensate 0
}
NONLINEAR_WAVE ripple
{
	id 6
	affected 2 2 110
	envelope_weight 0.5
	handle 4
	max_radius 61
	min_radius 62
	amplitude 63
	wavelength 64
	dropoff 65
	dropoff_position 66
	offset 67
}
)";

}  // namespace VKT::Test
