#pragma once

namespace VKT::Test {

// Fields and an emitter below one bone, particles, collision and volume objects. Ids 600 to
// 699. See Samples.h.
inline constexpr char kDynamicsSample[] =
    R"(|VKT_004A#0000#00000000|
COLLISION_BOX crate
{
	id 600
	gravity_scale 2
	mass 3
	x_size 4
	y_size 5
	z_size 6
}
COLLISION_CAPSULE limb
{
	id 601
	gravity_scale 7
	mass 8
	radius 9
	length 10
}
COLLISION_CONE spike
{
	id 602
	gravity_scale 11
	mass 12
	angle 13
	cap 14
}
COLLISION_CYLINDER stump
{
	id 603
	gravity_scale 15
	mass 16
	radius 17
	length 18
}
COLLISION_MESH terrain
{
	id 604
	gravity_scale 19
	mass 20
	num_points 3
	num_indices 4
	points
		1 2 3
		4 5 6
		7 8 9
	indices
		0
		1
		2
		9
}
COLLISION_SPHERE tomato
{
	id 605
	gravity_scale 21
	mass 22
	radius 23
}
PARTICLE trail
{
	id 606
	points 2
		24 25 26
		27 28 29
	deformer_queue 2 690 691
	intermediate_object 1
	fields 2
		611
		613
	depth_sort 1
	lifespan_type RANDOM
	lifespan 30
	lifespan_random 31
	particle_type MULTI_STREAK
	 material 692
}
VOLUME_BOX vat
{
	id 607
	x_size 32
	y_size 33
	z_size 34
}
VOLUME_CONE vent
{
	id 608
	angle 35
	cap 36
}
VOLUME_CYLINDER vial
{
	id 609
	radius 37
	height 38
}
VOLUME_SPHERE void
{
	id 610
	radius 39
}
AIR_FIELD breeze
{
	id 611
	visible	0
	scale_pivot	11 12 13
	rotate_pivot	14 15 16
	min_bound	17 18 19
	max_bound	20 21 22
	scale	23 24 25
	translate	26 27 28
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		-23 0 0 0
		-696 -24 0 0
		-750 -775 25 0
		18396 10406 -218 1
	rotation_order xzy
	inherits_transform 0
	shearing 29 30 31
	rotate_pivot_translate	30 31 32
	scale_pivot_translate	32 33 34
	translate_limit_x 34 35
	translate_limit_y 36 37
	translate_limit_z 38 39
	rotate_limit_x 40 41
	rotate_limit_y 42 43
	rotate_limit_z 44 45
	scale_limit_x 46 47
	scale_limit_y 48 49
	scale_limit_z 50 51
	parent 618
	child_joints 1
		681 
	INSTANCE_LIST
	{
	}
	magnitude 1.1
	attenuation 1.2
	max_distance 1.3
	use_max_distance 1
	per_vertex 1

	volume_shape CYLINDER

	volume_exclusion 1

	volume_offset 1.4 1.5 1.6

	volume_sweep 1.7

	inner_radius 1.8
	direction 0.1 0.2 0.3
	speed 0.4
	inherit_velocity 0.5
	inherit_rotation 1
	component_only 1
	spread 0.6
	enable_spread 1
}
DRAG_FIELD clutch
{
	id 612
	visible	0
	scale_pivot	21 22 23
	rotate_pivot	24 25 26
	min_bound	27 28 29
	max_bound	30 31 32
	scale	33 34 35
	translate	36 37 38
	rotation_orient	1 0 0 0
	rotation	0 0 1 0
	joint_orient	0 1 0 0
	bind_pose_matrix
		-33 0 0 0
		-1326 34 0 0
		-1400 1435 -35 0
		62126 -33610 870 1
	rotation_order xzy
	inherits_transform 0
	shearing 39 40 41
	rotate_pivot_translate	40 41 42
	scale_pivot_translate	42 43 44
	translate_limit_x 44 45
	translate_limit_y 46 47
	translate_limit_z 48 49
	rotate_limit_x 50 51
	rotate_limit_y 52 53
	rotate_limit_z 54 55
	scale_limit_x 56 57
	scale_limit_y 58 59
	scale_limit_z 60 61
	parent 618
	child_joints 1
		682 
	INSTANCE_LIST
	{
	}
	magnitude 2.1
	attenuation 2.2
	max_distance 2.3
	use_max_distance 1
	per_vertex 1

	volume_shape CONE

	volume_exclusion 1

	volume_offset 2.4 2.5 2.6

	volume_sweep 2.7

	inner_radius 2.8
	direction 0.7 0.8 0.9
	use_direction 1
}
GRAVITY_FIELD fall
{
	id 613
	visible	0
	scale_pivot	31 32 33
	rotate_pivot	34 35 36
	min_bound	37 38 39
	max_bound	40 41 42
	scale	43 44 45
	translate	46 47 48
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		43 0 0 0
		2156 -44 0 0
		2250 -2295 -45 0
		-144396 77226 1570 1
	rotation_order xzy
	inherits_transform 0
	shearing 49 50 51
	rotate_pivot_translate	50 51 52
	scale_pivot_translate	52 53 54
	translate_limit_x 54 55
	translate_limit_y 56 57
	translate_limit_z 58 59
	rotate_limit_x 60 61
	rotate_limit_y 62 63
	rotate_limit_z 64 65
	scale_limit_x 66 67
	scale_limit_y 68 69
	scale_limit_z 70 71
	parent 618
	child_joints 1
		683 
	INSTANCE_LIST
	{
	}
	magnitude 3.1
	attenuation 3.2
	max_distance 3.3
	use_max_distance 1
	per_vertex 1

	volume_shape SPHERE

	volume_exclusion 1

	volume_offset 3.4 3.5 3.6

	volume_sweep 3.7

	inner_radius 3.8
	direction 1.1 1.2 1.3
}
NEWTON_FIELD moon
{
	id 614
	visible	0
	scale_pivot	41 42 43
	rotate_pivot	44 45 46
	min_bound	47 48 49
	max_bound	50 51 52
	scale	53 54 55
	translate	56 57 58
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		-53 0 0 0
		-3186 -54 0 0
		-3300 -3355 55 0
		277986 146636 -2138 1
	rotation_order xzy
	inherits_transform 0
	shearing 59 60 61
	rotate_pivot_translate	60 61 62
	scale_pivot_translate	62 63 64
	translate_limit_x 64 65
	translate_limit_y 66 67
	translate_limit_z 68 69
	rotate_limit_x 70 71
	rotate_limit_y 72 73
	rotate_limit_z 74 75
	scale_limit_x 76 77
	scale_limit_y 78 79
	scale_limit_z 80 81
	parent 618
	child_joints 1
		684 
	INSTANCE_LIST
	{
	}
	magnitude 4.1
	attenuation 4.2
	max_distance 4.3
	use_max_distance 1
	per_vertex 1

	volume_shape TORUS

	volume_exclusion 1

	volume_offset 4.4 4.5 4.6

	volume_sweep 4.7

	inner_radius 4.8
	min_distance 1.4
}
RADIAL_FIELD push
{
	id 615
	visible	0
	scale_pivot	51 52 53
	rotate_pivot	54 55 56
	min_bound	57 58 59
	max_bound	60 61 62
	scale	63 64 65
	translate	66 67 68
	rotation_orient	1 0 0 0
	rotation	0 0 1 0
	joint_orient	0 1 0 0
	bind_pose_matrix
		-63 0 0 0
		-4416 64 0 0
		-4550 4615 -65 0
		474116 -247660 3570 1
	rotation_order xzy
	inherits_transform 0
	shearing 69 70 71
	rotate_pivot_translate	70 71 72
	scale_pivot_translate	72 73 74
	translate_limit_x 74 75
	translate_limit_y 76 77
	translate_limit_z 78 79
	rotate_limit_x 80 81
	rotate_limit_y 82 83
	rotate_limit_z 84 85
	scale_limit_x 86 87
	scale_limit_y 88 89
	scale_limit_z 90 91
	parent 618
	child_joints 1
		685 
	INSTANCE_LIST
	{
	}
	magnitude 5.1
	attenuation 5.2
	max_distance 5.3
	use_max_distance 1
	per_vertex 1

	volume_shape CUBE

	volume_exclusion 1

	volume_offset 5.4 5.5 5.6

	volume_sweep 5.7

	inner_radius 5.8
	radial_type 1.5
}
TURBULENCE_FIELD shake
{
	id 616
	visible	0
	scale_pivot	61 62 63
	rotate_pivot	64 65 66
	min_bound	67 68 69
	max_bound	70 71 72
	scale	73 74 75
	translate	76 77 78
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		73 0 0 0
		5846 -74 0 0
		6000 -6075 -75 0
		-744606 387456 4870 1
	rotation_order xzy
	inherits_transform 0
	shearing 79 80 81
	rotate_pivot_translate	80 81 82
	scale_pivot_translate	82 83 84
	translate_limit_x 84 85
	translate_limit_y 86 87
	translate_limit_z 88 89
	rotate_limit_x 90 91
	rotate_limit_y 92 93
	rotate_limit_z 94 95
	scale_limit_x 96 97
	scale_limit_y 98 99
	scale_limit_z 100 101
	parent 618
	child_joints 1
		686 
	INSTANCE_LIST
	{
	}
	magnitude 6.1
	attenuation 6.2
	max_distance 6.3
	use_max_distance 1
	per_vertex 1

	volume_shape CYLINDER

	volume_exclusion 1

	volume_offset 6.4 6.5 6.6

	volume_sweep 6.7

	inner_radius 6.8
	frequency 1.6
	phase 1.7 1.8 1.9
}
EMITTER spark
{
	id 617
	visible	0
	scale_pivot	71 72 73
	rotate_pivot	74 75 76
	min_bound	77 78 79
	max_bound	80 81 82
	scale	83 84 85
	translate	86 87 88
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		-83 0 0 0
		-7476 -84 0 0
		-7650 -7735 85 0
		1.10278e+06 570866 -5858 1
	rotation_order xzy
	inherits_transform 0
	shearing 89 90 91
	rotate_pivot_translate	90 91 92
	scale_pivot_translate	92 93 94
	translate_limit_x 94 95
	translate_limit_y 96 97
	translate_limit_z 98 99
	rotate_limit_x 100 101
	rotate_limit_y 102 103
	rotate_limit_z 104 105
	scale_limit_x 106 107
	scale_limit_y 108 109
	scale_limit_z 110 111
	parent 618
	child_joints 1
		687 
	INSTANCE_LIST
	{
	}
	shape 606
	rate 71
	max_distance 72
	min_distance 73
	direction 74 75 76
	spread 77
	particle_colour 0.71 0.72 0.73
	emitter_type VOLUME
	emitter_object 604
	emitter_transform 616
	volume_shape GRID
	volume_offset 78 79 80
	volume_sweep 81
	inner_radius 82
	speed 83
	speed_random 84
	size 85
	size_random 86
	mass 87
	mass_random 88
	alpha 89
	alpha_random 90
	hue_offset 91
	saturation_offset 92
	luminance_offset 93
}
BONE stage
{
	id 618
	visible	0
	scale_pivot	1 2 3
	rotate_pivot	4 5 6
	min_bound	7 8 9
	max_bound	10 11 12
	scale	13 14 15
	translate	16 17 18
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		13 0 0 0
		266 -14 0 0
		300 -315 -15 0
		-1386 996 70 1
	rotation_order xzy
	inherits_transform 0
	shearing 19 20 21
	rotate_pivot_translate	20 21 22
	scale_pivot_translate	22 23 24
	translate_limit_x 24 25
	translate_limit_y 26 27
	translate_limit_z 28 29
	rotate_limit_x 30 31
	rotate_limit_y 32 33
	rotate_limit_z 34 35
	scale_limit_x 36 37
	scale_limit_y 38 39
	scale_limit_z 40 41
	parent 0
	child_joints 10
		611 612 613 614 615 616 617 619 620 621 
	INSTANCE_LIST
	{
	}
}
VORTEX_FIELD swirl
{
	id 619
	visible	0
	scale_pivot	81 82 83
	rotate_pivot	84 85 86
	min_bound	87 88 89
	max_bound	90 91 92
	scale	93 94 95
	translate	96 97 98
	rotation_orient	1 0 0 0
	rotation	0 0 1 0
	joint_orient	0 1 0 0
	bind_pose_matrix
		-93 0 0 0
		-9306 94 0 0
		-9500 9595 -95 0
		1.55931e+06 -803710 8070 1
	rotation_order xzy
	inherits_transform 0
	shearing 99 100 101
	rotate_pivot_translate	100 101 102
	scale_pivot_translate	102 103 104
	translate_limit_x 104 105
	translate_limit_y 106 107
	translate_limit_z 108 109
	rotate_limit_x 110 111
	rotate_limit_y 112 113
	rotate_limit_z 114 115
	scale_limit_x 116 117
	scale_limit_y 118 119
	scale_limit_z 120 121
	parent 618
	child_joints 1
		689 
	INSTANCE_LIST
	{
	}
	magnitude 8.1
	attenuation 8.2
	max_distance 8.3
	use_max_distance 1
	per_vertex 1

	volume_shape SPHERE

	volume_exclusion 1

	volume_offset 8.4 8.5 8.6

	volume_sweep 8.7

	inner_radius 8.8
	axis 2.1 2.2 2.3
}
UNIFORM_FIELD tide
{
	id 620
	visible	0
	scale_pivot	91 92 93
	rotate_pivot	94 95 96
	min_bound	97 98 99
	max_bound	100 101 102
	scale	103 104 105
	translate	106 107 108
	rotation_orient	0 0 1 0
	rotation	0 1 0 0
	joint_orient	1 0 0 0
	bind_pose_matrix
		103 0 0 0
		11336 -104 0 0
		11550 -11655 -105 0
		-2.12602e+06 1.09369e+06 9970 1
	rotation_order xzy
	inherits_transform 0
	shearing 109 110 111
	rotate_pivot_translate	110 111 112
	scale_pivot_translate	112 113 114
	translate_limit_x 114 115
	translate_limit_y 116 117
	translate_limit_z 118 119
	rotate_limit_x 120 121
	rotate_limit_y 122 123
	rotate_limit_z 124 125
	scale_limit_x 126 127
	scale_limit_y 128 129
	scale_limit_z 130 131
	parent 618
	child_joints 1
		680 
	INSTANCE_LIST
	{
	}
	magnitude 9.1
	attenuation 9.2
	max_distance 9.3
	use_max_distance 1
	per_vertex 1

	volume_shape TORUS

	volume_exclusion 1

	volume_offset 9.4 9.5 9.6

	volume_sweep 9.7

	inner_radius 9.8
	direction 2.4 2.5 2.6
}
VOLUME_AXIS_FIELD whirl
{
	id 621
	visible	0
	scale_pivot	101 102 103
	rotate_pivot	104 105 106
	min_bound	107 108 109
	max_bound	110 111 112
	scale	113 114 115
	translate	116 117 118
	rotation_orient	0 1 0 0
	rotation	1 0 0 0
	joint_orient	0 0 1 0
	bind_pose_matrix
		-113 0 0 0
		-13566 -114 0 0
		-13800 -13915 115 0
		2.81677e+06 1.4451e+06 -11378 1
	rotation_order xzy
	inherits_transform 0
	shearing 119 120 121
	rotate_pivot_translate	120 121 122
	scale_pivot_translate	122 123 124
	translate_limit_x 124 125
	translate_limit_y 126 127
	translate_limit_z 128 129
	rotate_limit_x 130 131
	rotate_limit_y 132 133
	rotate_limit_z 134 135
	scale_limit_x 136 137
	scale_limit_y 138 139
	scale_limit_z 140 141
	parent 618
	child_joints 1
		681 
	INSTANCE_LIST
	{
	}
	magnitude 10.1
	attenuation 10.2
	max_distance 10.3
	use_max_distance 1
	per_vertex 1

	volume_shape CUBE

	volume_exclusion 1

	volume_offset 10.4 10.5 10.6

	volume_sweep 10.7

	inner_radius 10.8
	direction 2.7 2.8 2.9
	directional_speed 3.1
	invert_attenuation 1
	speed_along_axis 3.2
	speed_around_axis 3.3
	speed_away_from_axis 3.4
	speed_away_from_center 3.5
	turbulence 3.6
	turbulence_speed 3.7
	turbulence_frequency 3.8 3.9 4.1
	turbulence_offset 4.2 4.3 4.4
	detail_turbulence 4.5
}
)";

}  // namespace VKT::Test
