#pragma once

namespace VKT::Test {

// What the text form of `kOlderSample` says in a file of version 4: the values of the older
// file, and the defaults of what it lacks. The matrices are those that a load computes.
inline constexpr char kOlderSampleNow[] =
    R"(|VKT_004A#0000#00000000|
TEXTURE_2D placement
{
	id 1
	image 11
	translate_frame 1.1 1.2
	rotate_frame 1.3
	mirror_u 1
	mirror_v 1
	stagger 1
	wrap_u 1
	wrap_v 1
	repeat_uv 1.4 1.5
	offset_uv 1.6 1.7
	rotate_uv 1.8
	noise_uv 1.9 2.1
	file_texture_name ""
	filter_type 0
	filter_amount 1
	pre_filter 0
	pre_filter_radius 2
}
ANISOTROPIC brushed
{
	id 2
	hw_shader 108
	colour 0.15 0.16 0.17 0.18 input 102
	ambient_colour 0.11 0.12 0.13 0.14 input 101
	incandescence 0.25 0.26 0.27 0.28 input 104
	transparency 0.31 0.32 0.33 0.34 input 105
	bump_map 106
	env_map 107
	specular_colour 0.21 0.22 0.23 0.24 input 103
	tangentu 2.11 2.12 2.13 2.14
	tangentv 2.15 2.16 2.17 2.18
	correlation_x 2.21
	correlation_y 2.22
	roughness 2.23
	rotate_angle 2.24
	refractive_index 2.25
	anisotropic_reflectivity 1
}
LAMBERT clay
{
	id 3
	hw_shader 117
	colour 0.41 0.42 0.43 0.44 input 112
	ambient_colour 0.35 0.36 0.37 0.38 input 111
	incandescence 0.45 0.46 0.47 0.48 input 113
	transparency 0.51 0.52 0.53 0.54 input 114
	bump_map 115
	env_map 116
	EXTRA_ATTRIBUTES
	{
		speed float 1.5
		marks vector<message> 3
	}
	CONNECTIONS
	{
		ATTR speed 0
		{
			input 20 translate
			output 0
		}
		ATTR marks 2
		{
			input 0
			output 2
				2 colour
				20 scale
		}
	}
}
BLINN enamel
{
	id 4
	hw_shader 128
	colour 0.61 0.62 0.63 0.64 input 122
	ambient_colour 0.55 0.56 0.57 0.58 input 121
	incandescence 0.71 0.72 0.73 0.74 input 124
	transparency 0.75 0.76 0.77 0.78 input 125
	bump_map 126
	env_map 127
	specular_colour 0.65 0.66 0.67 0.68 input 123
	eccentricity 0.25
	specular_roll_off 4.1
}
PHONG glass
{
	id 5
	hw_shader 138
	colour 0.85 0.86 0.87 0.88 input 132
	ambient_colour 0.81 0.82 0.83 0.84 input 131
	incandescence 0.95 0.96 0.97 0.98 input 134
	transparency 1.11 1.12 1.13 1.14 input 135
	bump_map 136
	env_map 137
	specular_colour 0.91 0.92 0.93 0.94 input 133
	shininess 5.1
}
PHONGE honey
{
	id 6
	hw_shader 148
	colour 1.21 1.22 1.23 1.24 input 142
	ambient_colour 1.15 1.16 1.17 1.18 input 141
	incandescence 1.31 1.32 1.33 1.34 input 144
	transparency 1.35 1.36 1.37 1.38 input 145
	bump_map 146
	env_map 147
	specular_colour 1.25 1.26 1.27 1.28 input 143
	highlight_size 6.1
	roughness 6.2
}
LAYERED_SHADER layers
{
	id 7
	hw_shader 158
	colour 1.45 1.46 1.47 1.48 input 152
	transparency 1.61 1.62 1.63 1.64 input 155
compositing_flag 7
inputs 2
		colour 0 0 0 1 input 171
		transparency 0 0 0 1 input 173
		glow 0 0 0 1 input 175

		colour 0 0 0 1 input 172
		transparency 0 0 0 1 input 174
		glow 0 0 0 1 input 176
}
SURFACE_SHADER plain
{
	id 8
	hw_shader 188
	colour 1.71 1.72 1.73 1.74 input 182
	transparency 1.85 1.86 1.87 1.88 input 185
}
RAMP_SHADER ramps
{
	id 9
	hw_shader 198
	colour 1.95 1.96 1.97 1.98 input 192
	transparency 2.41 2.42 2.43 2.44 input 195
	colour_ramp 0

	specular_ramp 0

	transparency_ramp 0

	emission_ramp 0

	environment_ramp 0

	specular_roll_off_ramp 0

	reflectivity_ramp 0
}
USE_BACKGROUND window
{
	id 10
	hw_shader 208
	colour 2.51 2.52 2.53 2.54 input 202
}
BASE_LATTICE box
{
	id 11
	x_size 1
	y_size 1
	z_size 1
}
AMBIENT_LIGHT bulb
{
	id 12
	colour		12.1 12.2 12.3
	intensity	12.4
	shadow_colour	12.5 12.6 12.7
	emit_ambient 0
	emit_diffuse 0
	emit_specular 0
	ambient_shade	12.8
	cast_soft_shadows	1
	shadow_radius	12.9
}
PARTICLE dust
{
	id 13
	points 0
	deformer_queue 0
	intermediate_object 0
	fields 2
		23
		99
	depth_sort 0
	lifespan_type LIVE_FOREVER
	lifespan 1
	lifespan_random 0
	particle_type POINT
	 material 0
}
NURBS_CURVE edge
{
	id 14
	points 1
		14.1 14.2 14.3
	deformer_queue 2 31 32
	intermediate_object 0
	curve_type 0
	degree 15
	knots 3
		14.4 14.5 14.6 
}
LATTICE grid
{
	id 15
	points 2
		15.1 15.2 15.3
		15.4 15.5 15.6
	deformer_queue 1 30
	intermediate_object 0
	divisions_s 16
	divisions_t 17
	divisions_u 18
}
BONE arm
{
	id 20
	visible	0
	scale_pivot	1 2 3
	rotate_pivot	4 5 6
	min_bound	7 8 9
	max_bound	10 11 12
	scale	2 4 8
	translate	13 14 15
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		-2 0 0 0
		0 -4 0 0
		0 0 8 0
		22 30 -6 1
	rotation_order xyz
	inherits_transform 1
	shearing 0 0 0
	rotate_pivot_translate	0 0 0
	scale_pivot_translate	0 0 0
	translate_limit_x -INF +INF
	translate_limit_y -INF +INF
	translate_limit_z -INF +INF
	rotate_limit_x -INF +INF
	rotate_limit_y -INF +INF
	rotate_limit_z -INF +INF
	scale_limit_x -INF +INF
	scale_limit_y -INF +INF
	scale_limit_z -INF +INF
	parent 0
	child_joints 2
		22 98 
	INSTANCE_LIST
	{
		INSTANCE drawn {
			object_id 14
			num_uv_sets 0
			material 3
		}
		INSTANCE caged {
			object_id 15
			num_uv_sets 0
			MATERIAL_GROUP {
				material_id 2
				num_face_indices 2
					36 37 
			}
			MATERIAL_GROUP {
				material_id 4
				num_face_indices 1
					38 
			}
		}
	}
}
EMITTER chimney
{
	id 21
	visible	0
	scale_pivot	2 3 4
	rotate_pivot	5 6 7
	min_bound	8 9 10
	max_bound	11 12 13
	scale	3 5 7
	translate	16 17 18
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		3 0 0 0
		0 -5 0 0
		0 0 -7 0
		12 41 56 1
	rotation_order xyz
	inherits_transform 1
	shearing 0 0 0
	rotate_pivot_translate	0 0 0
	scale_pivot_translate	0 0 0
	translate_limit_x -INF +INF
	translate_limit_y -INF +INF
	translate_limit_z -INF +INF
	rotate_limit_x -INF +INF
	rotate_limit_y -INF +INF
	rotate_limit_z -INF +INF
	scale_limit_x -INF +INF
	scale_limit_y -INF +INF
	scale_limit_z -INF +INF
	parent 0
	child_joints 0
	INSTANCE_LIST
	{
	}
	shape 13
	rate 21.1
	max_distance 21.2
	min_distance 21.3
	direction 21.4 21.5 21.6
	spread 21.7
	particle_colour 0.211 0.212 0.213
	emitter_type OMNI
	emitter_object 0
	emitter_transform 0
	volume_shape CUBE
	volume_offset 0 0 0
	volume_sweep 6.28319
	inner_radius 0.5
	speed 1
	speed_random 0
	size 1
	size_random 0
	mass 1
	mass_random 0
	alpha 1
	alpha_random 0
	hue_offset 0
	saturation_offset 0
	luminance_offset 0
}
JOINT elbow
{
	id 22
	visible	0
	scale_pivot	3 4 5
	rotate_pivot	6 7 8
	min_bound	9 10 11
	max_bound	12 13 14
	scale	4 6 8
	translate	19 20 21
	rotation_orient	1 0 0 0
	rotation	0 0 1 0
	joint_orient	0 1 0 0
	bind_pose_matrix
		2 0 0 0
		0 1.5 0 0
		0 0 1 0
		19 20 21 1
	rotation_order xyz
	inherits_transform 1
	shearing 0 0 0
	rotate_pivot_translate	0 0 0
	scale_pivot_translate	0 0 0
	translate_limit_x -INF +INF
	translate_limit_y -INF +INF
	translate_limit_z -INF +INF
	rotate_limit_x -INF +INF
	rotate_limit_y -INF +INF
	rotate_limit_z -INF +INF
	scale_limit_x -INF +INF
	scale_limit_y -INF +INF
	scale_limit_z -INF +INF
	parent 20
	child_joints 0
	INSTANCE_LIST
	{
	}
	segment_scale_compensate 1
}
TURBULENCE_FIELD gust
{
	id 23
	visible	0
	scale_pivot	4 5 6
	rotate_pivot	7 8 9
	min_bound	10 11 12
	max_bound	13 14 15
	scale	5 7 9
	translate	22 23 24
	rotation_orient	0 1 0 0
	rotation	0 0 1 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		5 0 0 0
		0 -7 0 0
		0 0 -9 0
		6 69 90 1
	rotation_order xyz
	inherits_transform 1
	shearing 0 0 0
	rotate_pivot_translate	0 0 0
	scale_pivot_translate	0 0 0
	translate_limit_x -INF +INF
	translate_limit_y -INF +INF
	translate_limit_z -INF +INF
	rotate_limit_x -INF +INF
	rotate_limit_y -INF +INF
	rotate_limit_z -INF +INF
	scale_limit_x -INF +INF
	scale_limit_y -INF +INF
	scale_limit_z -INF +INF
	parent 0
	child_joints 0
	INSTANCE_LIST
	{
	}
	magnitude 23.1
	attenuation 23.2
	max_distance 23.3
	use_max_distance 1
	per_vertex 1

	volume_shape NONE

	volume_exclusion 0

	volume_offset 0 0 0

	volume_sweep 6.28319

	inner_radius 0.5
	frequency 23.4
	phase 23.5 0 0
}
BLEND_SHAPE faces
{
	id 30
	affected 2 15 97
	envelope_weight 1
	num_shapes 2
	smile 0 0
		points 2
		30.1 30.2 30.3
		30.4 30.5 30.6
	frown 0 0
		points 1
		30.7 30.8 30.9
}
CLUSTER pull
{
	id 31
	affected 1 14
	envelope_weight 1
	joint_id 22
		num_weights 2
			311 0.31
			312 0.32
}
WIRE_DEFORMER ropes
{
	id 32
	affected 1 14
	envelope_weight 1
	crossing_effect 32.1
	local_intensity 32.2
	rotation 32.3
	num_wires 2
		14 14 32.4 32.5
		321 321 32.6 32.7

}
)";

}  // namespace VKT::Test
