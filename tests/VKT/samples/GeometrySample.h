#pragma once

namespace VKT::Test {

// Shapes other than polygon meshes: curves, patches, surfaces, an older mesh with its vertex
// colours, a locator. Ids 400 to 499. See Samples.h.
inline constexpr char kGeometrySample[] =
    R"(|VKT_004A#0000#00000000|
BEZIER_CURVE arc
{
	id 400
	points 2
		1 2 3
		4 5 6
	deformer_queue 2 490 491
	intermediate_object 1
	curve_type 7
}
HERMITE_CURVE bow
{
	id 401
	points 1
		8 9 10
	deformer_queue 2 490 491
	intermediate_object 1
	curve_type 11
}
BEZIER_PATCH cloth
{
	id 402
	points 1
		12 13 14
	deformer_queue 2 490 491
	intermediate_object 1
	is_trimmed 1
	num_regions 2
	REGION {
		num_boundaries 1
		BOUNDARY {
			type ClosedBoundarySegment_ClosedCurveOnFace
			num_curves 1
			TRIM_CURVE {
				2d_parametric_curve
				degree 15
				knots 2
				16 17.5 
				cvs 2
					0.1 0.2
					0.3 0.4
				3d_local_curve
				degree -18
				knots 1
				19 
				cvs 2
					20 21 22
					23 24 25
			}
		}
	}
	REGION {
		num_boundaries 0
	}
}
HERMITE_PATCH drape
{
	id 403
	points 1
		26 27 28
	deformer_queue 2 490 491
	intermediate_object 1
	is_trimmed 1
	num_regions 1
	REGION {
		num_boundaries 2
		BOUNDARY {
			type OuterBoundary_AntiClockWise
			num_curves 0
		}
		BOUNDARY {
			type BoundarySegment_CurveOnFace
			num_curves 1
			TRIM_CURVE {
				2d_parametric_curve
				degree 0
				knots 0
				
				cvs 0
				3d_local_curve
				degree 29
				knots 0
				
				cvs 0
			}
		}
	}
}
NURBS_CURVE edge
{
	id 404
	points 1
		30 31 32
	deformer_queue 2 490 491
	intermediate_object 1
	curve_type 33
	degree 34
	knots 3
		35 36.25 37 
}
MESH face
{
	id 405
	points 3
		38 39 40
		41 42 43
		44 45 46
	deformer_queue 2 490 491
	intermediate_object 1
	normal_count 2
	num_uv_sets 2
	face_count 2
	normals
		0.1 0.2 0.3
		0.4 0.5 0.6
	tex_coords "map1" 3
		0.7 0.8
		0.9 1.25
		1.5 1.75
	tex_coords "map2" 1
		-0.5 -0.25
	FACE 3
		0 1 2 0
		1 0 1 -1
		2 1 0 0
	FACE 4
		2 0 1 5
		1 1 0 6
		0 0 2 7
		7 8 9 10
}
LOCATOR gate
{
	id 406
}
NURBS_SURFACE hull
{
	id 407
	points 1
		47 48 49
	deformer_queue 2 490 491
	intermediate_object 1
	is_trimmed 1
	num_regions 0
	degree_u 3
	degree_v 4
	num_cvs_u 500
	num_cvs_v 600
	type_u 5
	type_v 255
	knots_u 2
		50 51 
	knots_v 3
		52 53 54.5 
}
MESH_VTX_COLOURS tints
{
	id 408
	mesh_id 405
	num_colour_sets 2
	colour_set "day" 2
		0.1 0.2 0.3 0.4
		0.5 0.6 0.7 0.8
	faces 2
		3 0 1 -1 
		4 1 0 1 9 
	colour_set "night" 1
		0.15 0.25 0.35 0.45
	faces 2
		0 
		1 8 
}
)";

}  // namespace VKT::Test
