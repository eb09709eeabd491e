#pragma once

namespace VKT::Test {

// One deformer of each kind but the wave, and the lattices. The base lattice is a cube,
// since text files have one size for all three. Ids 200 to 299. See Samples.h.
inline constexpr char kDeformerSample[] =
    R"(|VKT_004A#0000#00000000|
BASE_LATTICE box
{
	id 201
	x_size 1.1
	y_size 1.1
	z_size 1.1
}
LATTICE grid
{
	id 202
	points 2
		2.1 2.2 2.3
		2.4 2.5 2.6
	deformer_queue 2 294 295
	intermediate_object 1
	divisions_s 20
	divisions_t 21
	divisions_u 22
}
NONLINEAR_BEND bend
{
	id 204
	affected 2 270 271
	envelope_weight 0.04
	handle 280
	low_bound 4.1
	high_bound 4.2
	curvature 4.3
}
BLEND_SHAPE blend
{
	id 203
	affected 2 296 297
	envelope_weight 0.03
	num_shapes 2
	smile 298 3.1
		points 2
		3.2 3.3 3.4
		3.5 3.6 3.7
	frown 299 3.8
		points 1
		3.9 4 4.01
}
CLUSTER cluster
{
	id 205
	affected 2 272 273
	envelope_weight 0.05
	joint_id 281
		num_weights 2
			51 5.1
			50 5.2
}
FFD ffd
{
	id 206
	affected 1 297
	envelope_weight 0.06
	base 201
	deformed 202
}
NONLINEAR_FLARE flare
{
	id 207
	affected 1 274
	envelope_weight 0.07
	handle 282
	low_bound 7.1
	high_bound 7.2
	start_flare_x 7.3
	start_flare_z 7.4
	end_flare_x 7.5
	end_flare_z 7.6
	curve 7.7
}
JIGGLE_DEFORMER jiggle
{
	id 208
	affected 1 275
	envelope_weight 0.08
	enable 80
	ignore_transform 1
	force_along_normal 8.1
	force_on_tangent 8.2
	motion_multiplier 8.3
	stiffness 8.4
	damping 8.5
	jiggle_weight 8.6
	direction_bias 8.7
	point_indices 3 82 -81 83
}
JOINT_CLUSTER joint_cluster
{
	id 209
	affected 1 276
	envelope_weight 0.09
	joint_id 283
		num_weights 3
			92 9.1
			90 9.2
			91 9.3
}
SCULPT_DEFORMER sculpt
{
	id 210
	affected 1 277
	envelope_weight 0.1
	mode 10
	inside_mode 11
	maximum_displacement 10.1
	dropoff_type 12
	dropoff_distance 10.2
	start_position 10.3 10.4 10.5
	sculpt_object 284
	start_object 285
}
NONLINEAR_SINE sine
{
	id 211
	affected 1 278
	envelope_weight 0.11
	handle 286
	low_bound 11.1
	high_bound 11.2
	amplitude 11.3
	wavelength 11.4
	dropoff 11.5
	offset 11.6
}
SKIN skin
{
	id 212
	affected 2 277 283
	envelope_weight 0.12
	num_influences 3
		284 285 286 
	num_points 3
	weights
		2	 2 0.25 0 0.75
		0	
		3	 1 0.125 0 0.5 2 0.375
}
NONLINEAR_SQUASH squash
{
	id 213
	affected 1 279
	envelope_weight 0.13
	handle 287
	low_bound 13.1
	high_bound 13.2
	start_smoothness 13.3
	end_smoothness 13.4
	max_expand_pos 13.5
	expand 13.6
	factor 13.7
}
NONLINEAR_TWIST twist
{
	id 214
	affected 1 280
	envelope_weight 0.14
	handle 288
	low_bound 14.1
	high_bound 14.2
	start_angle 14.3
	end_angle 14.4
}
WIRE_DEFORMER wire
{
	id 215
	affected 1 281
	envelope_weight 0.15
	crossing_effect 15.1
	local_intensity 15.2
	rotation 15.3
	num_wires 2
		289 290 15.4 15.5
		291 292 15.6 15.7

}
WRAP_DEFORMER wrap
{
	id 216
	affected 1 282
	envelope_weight 0.16
	dropoff 16.1
	smoothness 16.2
	weight_threshold 16.3
	max_distance 16.4
	influence_type 16
	nurbs_samples 17
	driver_geometry 293
}
)";

}  // namespace VKT::Test
