#pragma once

namespace VKT::Test {

// A bone and what animates it: a take with every form of stream, and a cycle. Ids 300 to
// 399. See Samples.h.
inline constexpr char kAnimationSample[] =
    R"(|VKT_004A#0000#00000000|
BONE runner
{
	id 300
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
	}
}
ANIMATION_TAKE walk
{
	id 301
	start_time 1.25
	end_time 3.5
	fps 25
	current_time 2.75
	num_animated_nodes 2
	num_event_tracks 0
	ANIM_NODE 300
	{
		num_animated_attrs 4
		num_animated_attrs_user 3
		ATTR rotation
		{
			num_streams 2
			elements_per_sample 4
			POSE_KEY
			{
				0.5 -0.5 0.25 0.75 
			}
			SAMPLED_KEYS
			{

				0.1 0.2 0.3 0.4 
				0.5 0.6 0.7 0.8 
				0.9 1.1 1.2 1.3 
				1.4 1.5 1.6 1e-07 
			}
		}
		ATTR translate
		{
			num_streams 1
			elements_per_sample 3
			FCURVE_STREAM
			{
				num_fcurves 2
				ANIM_CURVE 
				{
					interpolation BEZIER_2D
					num_keys 2
					pre_infinity kInfinityLinear
					post_infinity kInfinityOscillate
					component 0
					index -1
						1 2 3 4 5 6 
						7 8 9 10 11 12 
				}
				ANIM_CURVE 
				{
					interpolation TCB
					num_keys 1
					pre_infinity kInfinityCycle
					post_infinity kInfinityCycleWithOffset
					component 2
					index 3
						13 14 15 16 17 
				}
			}
		}
		ATTR visible
		{
			num_streams 1
			elements_per_sample 1
			SAMPLED_KEYS
			{

				1 
				0 
				1 
				0.5 
			}
		}
		ATTR world
		{
			num_streams 1
			elements_per_sample 16
			POSE_KEY
			{
				2 0 0 0 188 -4 0 0 384 -392 -8 0 -1410 1206 48 1 
			}
		}
	}
	ANIM_NODE 301
	{
		num_animated_attrs 0
		num_animated_attrs_user 5
	}
}
ANIM_CYCLE "stride"
{
	num_bones 2
	start 6
	end 7
	num_frames 2
	fps 24
	BONE_ANIM 300
	{
		0.1 0.2 0.3 0.4	5 6 7	8 9 10
		0.5 0.6 0.7 0.8	15 16 17	18 19 20
	}
	BONE_ANIM 309
	{
		-0.1 -0.2 -0.3 -0.4	-5 -6 -7	-8 -9 -10
		-0.5 -0.6 -0.7 -0.8	-15 -16 -17	-18 -19 -20
	}
	ANIM_CURVE_LIST lamp
	{
		node 310
		num_curves 2
		ANIM_CURVE glow
		{
			attr_name intensity
			num_keys 2
				time 21 value 22 in 23 out 24
				time 25 value 26 in 27 out 28
		}
		ANIM_CURVE hue
		{
			attr_name colour
			num_keys 0
		}
	}
}
)";

}  // namespace VKT::Test
