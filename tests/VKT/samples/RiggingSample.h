#pragma once

namespace VKT::Test {

// Constraints below one bone, an IK chain, layers and a set. Ids 500 to 599. See Samples.h.
inline constexpr char kRiggingSample[] =
    R"(|VKT_004A#0000#00000000|
AIM_CONSTRAINT aim
{
	id 501
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
	parent 500
	child_joints 1
		591 
	INSTANCE_LIST
	{
	}
	affected 503
	num_targets 2
		504 aimed 0.25
		505 seen 0.5
	aim_vector 0.1 0.2 0.3
	up_vector 0.4 0.5 0.6
	offset 0.7 0.8 0.9
}
GEOMETRY_CONSTRAINT cling
{
	id 502
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
	parent 500
	child_joints 1
		592 
	INSTANCE_LIST
	{
	}
	affected 501
	num_targets 1
		503 ground 0.75
}
LOOK_AT_CONSTRAINT gaze
{
	id 503
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
	parent 500
	child_joints 1
		593 
	INSTANCE_LIST
	{
	}
	affected 502
	num_targets 1
		501 near 0.125
	aim_vector 1.1 1.2 1.3
	up_vector 1.4 1.5 1.6
	offset 1.7 1.8 1.9
	distance_between 2.1
	twist 2.2
}
NORMAL_CONSTRAINT lean
{
	id 504
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
	parent 500
	child_joints 1
		594 
	INSTANCE_LIST
	{
	}
	affected 505
	num_targets 1
		506 hill 2
	aim_vector 2.3 2.4 2.5
	up_vector 2.6 2.7 2.8
}
ORIENT_CONSTRAINT nod
{
	id 505
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
	parent 500
	child_joints 1
		595 
	INSTANCE_LIST
	{
	}
	affected 504
	num_targets 1
		507 head 3
	offset 3.1 3.2 3.3
}
PARENT_CONSTRAINT own
{
	id 506
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
	parent 500
	child_joints 1
		596 
	INSTANCE_LIST
	{
	}
	affected 507
	num_targets 1
		504 hand 4
}
POINT_CONSTRAINT pin
{
	id 507
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
	parent 500
	child_joints 1
		597 
	INSTANCE_LIST
	{
	}
	affected 506
	num_targets 1
		508 spot 5
	offset 4.1 4.2 4.3
}
POLE_VECTOR_CONSTRAINT pole
{
	id 508
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
	parent 500
	child_joints 1
		598 
	INSTANCE_LIST
	{
	}
	affected 509
	num_targets 1
		507 elbow 6
	offset 5.1 5.2 5.3
	pivot_space
		2 0 0 0
		0 3 0 0
		0 0 4 0
		5 6 7 1
}
BONE rig
{
	id 500
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
		501 502 503 504 505 506 507 508 509 510 
	INSTANCE_LIST
	{
	}
}
SCALE_CONSTRAINT size
{
	id 509
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
	parent 500
	child_joints 1
		599 
	INSTANCE_LIST
	{
	}
	affected 508
	num_targets 1
		510 big 7
	offset 6.1 6.2 6.3
}
TANGENT_CONSTRAINT track
{
	id 510
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
	parent 500
	child_joints 1
		590 
	INSTANCE_LIST
	{
	}
	affected 501
	num_targets 1
		509 rail 8
	aim_vector 7.1 7.2 7.3
	up_vector 7.4 7.5 7.6
}
IK_CHAIN arm
{
	id 511
	handle 512
	priority -2
	max_iterations 30
	weight 0.3
	poweight 0.4
	tolerance 0.05
	stickiness 0.6
	pole_vector 7 8 9
	pole_constraint 508
	chain 3
		501 502 503 
}
DISPLAY_LAYER back
{
	id 513
	num_items 2
		501
		506
}
RENDER_LAYER front
{
	id 514
	num_items 1
		502
}
OBJECT_SET props
{
	id 515
	num_items 3
		503
		504
		503
	annotation "loose"
}
)";

}  // namespace VKT::Test
