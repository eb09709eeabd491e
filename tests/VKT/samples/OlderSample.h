#pragma once

namespace VKT::Test {

// A document as files of version 3 hold it: a node of each class that stores something else
// since, and behind each such body one that did not change. Every value that the file holds
// differs from its default and from its neighbours.
inline constexpr char kOlderSample[] =
    R"(|VKT_003A#0000#00000000|
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
}
ANISOTROPIC brushed
{
	id 2
	ambient_color 0.11 0.12 0.13 0.14 tex 101
	color 0.15 0.16 0.17 0.18 tex 102
	specular_color 0.21 0.22 0.23 0.24 tex 103
	incandescence 0.25 0.26 0.27 0.28 tex 104
	transparency 0.31 0.32 0.33 0.34 tex 105
	bump_map 106
	env_map 107
	hw_shader 108
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
	ambient_color 0.35 0.36 0.37 0.38 tex 111
	color 0.41 0.42 0.43 0.44 tex 112
	incandescence 0.45 0.46 0.47 0.48 tex 113
	transparency 0.51 0.52 0.53 0.54 tex 114
	bump_map 115
	env_map 116
	hw_shader 117
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
	ambient_color 0.55 0.56 0.57 0.58 tex 121
	color 0.61 0.62 0.63 0.64 tex 122
	specular_color 0.65 0.66 0.67 0.68 tex 123
	incandescence 0.71 0.72 0.73 0.74 tex 124
	transparency 0.75 0.76 0.77 0.78 tex 125
	bump_map 126
	env_map 127
	hw_shader 128
	eccentricity 0.25
	specular_roll_off 4.1
}
PHONG glass
{
	id 5
	ambient_color 0.81 0.82 0.83 0.84 tex 131
	color 0.85 0.86 0.87 0.88 tex 132
	specular_color 0.91 0.92 0.93 0.94 tex 133
	incandescence 0.95 0.96 0.97 0.98 tex 134
	transparency 1.11 1.12 1.13 1.14 tex 135
	bump_map 136
	env_map 137
	hw_shader 138
	shininess 5.1
}
PHONGE honey
{
	id 6
	ambient_color 1.15 1.16 1.17 1.18 tex 141
	color 1.21 1.22 1.23 1.24 tex 142
	specular_color 1.25 1.26 1.27 1.28 tex 143
	incandescence 1.31 1.32 1.33 1.34 tex 144
	transparency 1.35 1.36 1.37 1.38 tex 145
	bump_map 146
	env_map 147
	hw_shader 148
	highlight_size 6.1
	roughness 6.2
}
LAYERED_SHADER layers
{
	id 7
	ambient_color 1.41 1.42 1.43 1.44 tex 151
	color 1.45 1.46 1.47 1.48 tex 152
	specular_color 1.51 1.52 1.53 1.54 tex 153
	incandescence 1.55 1.56 1.57 1.58 tex 154
	transparency 1.61 1.62 1.63 1.64 tex 155
	bump_map 156
	env_map 157
	hw_shader 158
	colour_inputs 2 171 172
	transparency_inputs 2 173 174
	glow_inputs 2 175 176
	compositing_flag 7
}
SURFACE_SHADER plain
{
	id 8
	ambient_color 1.65 1.66 1.67 1.68 tex 181
	color 1.71 1.72 1.73 1.74 tex 182
	specular_color 1.75 1.76 1.77 1.78 tex 183
	incandescence 1.81 1.82 1.83 1.84 tex 184
	transparency 1.85 1.86 1.87 1.88 tex 185
	bump_map 186
	env_map 187
	hw_shader 188
}
RAMP_SHADER ramps
{
	id 9
	ambient_color 1.91 1.92 1.93 1.94 tex 191
	color 1.95 1.96 1.97 1.98 tex 192
	specular_color 2.31 2.32 2.33 2.34 tex 193
	incandescence 2.35 2.36 2.37 2.38 tex 194
	transparency 2.41 2.42 2.43 2.44 tex 195
	bump_map 196
	env_map 197
	hw_shader 198
}
USE_BACKGROUND window
{
	id 10
	ambient_color 2.45 2.46 2.47 2.48 tex 201
	color 2.51 2.52 2.53 2.54 tex 202
	specular_color 2.55 2.56 2.57 2.58 tex 203
	incandescence 2.61 2.62 2.63 2.64 tex 204
	transparency 2.65 2.66 2.67 2.68 tex 205
	bump_map 206
	env_map 207
	hw_shader 208
}
BASE_LATTICE box
{
	id 11
}
AMBIENT_LIGHT bulb
{
	id 12
	colour		12.1 12.2 12.3
	intensity	12.4
	shadow_colour	12.5 12.6 12.7
	ambient_shade	12.8
	cast_soft_shadows	1
	shadow_radius	12.9
}
PARTICLE dust
{
	id 13
	fields 2
		23
		99
}
NURBS_CURVE edge
{
	id 14
	points 1
		14.1 14.2 14.3
	deformer_queue 2 31 32
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
		20 21 22 23
		24 25 26 27
		28 29 30 31
		32 33 34 35
	parent 0
	child_joints 2
		22 98 
	INSTANCE_LIST
	{
		INSTANCE drawn {
			object_id 14
			material 3
		}
		INSTANCE caged {
			object_id 15
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
		40 41 42 43
		44 45 46 47
		48 49 50 51
		52 53 54 55
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
		60 61 62 63
		64 65 66 67
		68 69 70 71
		72 73 74 75
	parent 20
	child_joints 0
	INSTANCE_LIST
	{
	}
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
		80 81 82 83
		84 85 86 87
		88 89 90 91
		92 93 94 95
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
	frequency 23.4
	phase 23.5
}
BLEND_SHAPE faces
{
	id 30
	affected 2 15 97
	num_shapes 2
	smile
		points 2
		30.1 30.2 30.3
		30.4 30.5 30.6
	frown
		points 1
		30.7 30.8 30.9
}
CLUSTER pull
{
	id 31
	affected 1 14
	joint_id 22
		num_weights 2
			311 0.31
			312 0.32
}
WIRE_DEFORMER ropes
{
	id 32
	affected 1 14
	crossing_effect 32.1
	local_intensity 32.2
	rotation 32.3
	num_wires 2
		14 32.4 32.5
		321 32.6 32.7

}
)";

}  // namespace VKT::Test
