#pragma once

namespace VKT::Test {

// One node of each class that gives surfaces their look: materials, layered and
// ramp shaders, textures, maps and placements. Ids 700 to 799. See Samples.h.
inline constexpr char kShadingSample[] =
    R"(|VKT_004A#0000#00000000|
TEXTURE_2D photo
{
	id 710
	image 401
	translate_frame 402 403
	rotate_frame 404
	mirror_u 1
	mirror_v 1
	stagger 1
	wrap_u 1
	wrap_v 1
	repeat_uv 405 406
	offset_uv 407 408
	rotate_uv 409
	noise_uv 410 411
	file_texture_name "C:\my maps\photo.tga"
	filter_type 412
	filter_amount 413
	pre_filter 1
	pre_filter_radius 414
}
BUMP_MAP bumps
{
	id 711
	bump_depth 415
	texture_id 710
}
CUBE_MAP cube
{
	id 712
	dynamic 0
	placement 716
	left 416
	right 417
	top 418
	bottom 419
	front 420
	back 421
}
LAYERED_TEXTURE decal
{
	id 713
inputs 2
		texture 422 423 424 425 input 710 mode darken
		texture 426 427 428 429 input 430 mode illuminate
}
SPHERE_MAP dome
{
	id 714
	image 431
	placement 716
}
CUBE_MAP live
{
	id 717
	dynamic 1
	placement 718
}
TEXTURE plain
{
	id 715
}
ANISOTROPIC brushed
{
	id 702
	hw_shader 701
	colour 101 102 103 104 input 105
	ambient_colour 106 107 108 109 input 110
	incandescence 111 112 113 114 input 115
	transparency 116 117 118 119 input 120
	bump_map 121
	env_map 122
	specular_colour 123 124 125 126 input 127
	tangentu 128 129 130 131
	tangentv 132 133 134 135
	correlation_x 136
	correlation_y 137
	roughness 138
	rotate_angle 139
	refractive_index 140
	anisotropic_reflectivity 1
}
BLINN chrome
{
	id 703
	hw_shader 701
	colour 141 142 143 144 input 145
	ambient_colour 146 147 148 149 input 150
	incandescence 151 152 153 154 input 155
	transparency 156 157 158 159 input 160
	bump_map 161
	env_map 162
	specular_colour 163 164 165 166 input 167
	eccentricity 0.25
	specular_roll_off 168
}
SURFACE_SHADER flat
{
	id 704
	hw_shader 701
	colour 169 170 171 172 input 173
	transparency 174 175 176 177 input 178
}
PHONG glass
{
	id 705
	hw_shader 701
	colour 179 180 181 182 input 183
	ambient_colour 184 185 186 187 input 188
	incandescence 189 190 191 192 input 193
	transparency 194 195 196 197 input 198
	bump_map 199
	env_map 200
	specular_colour 201 202 203 204 input 205
	shininess 206
}
PHONGE lacquer
{
	id 706
	hw_shader 701
	colour 207 208 209 210 input 211
	ambient_colour 212 213 214 215 input 216
	incandescence 217 218 219 220 input 221
	transparency 222 223 224 225 input 226
	bump_map 227
	env_map 228
	specular_colour 229 230 231 232 input 233
	highlight_size 234
	roughness 235
}
LAYERED_SHADER paint
{
	id 708
	hw_shader 701
	colour 301 302 303 304 input 305
	transparency 306 307 308 309 input 310
compositing_flag 1
inputs 2
		colour 311 312 313 314 input 315
		transparency 316 317 318 319 input 320
		glow 321 322 323 324 input 325

		colour 326 327 328 329 input 330
		transparency 331 332 333 334 input 335
		glow 336 337 338 339 input 340
}
RAMP_SHADER rainbow
{
	id 709
	hw_shader 701
	colour 383 384 385 386 input 387
	transparency 388 389 390 391 input 392
	colour_ramp 2
	value 341 342 343 344 input 345
		position 346
		interp_type kLinear

	value 347 348 349 350 input 351
		position 352
		interp_type kSmooth

	specular_ramp 1
	value 353 354 355 356 input 357
		position 358
		interp_type kSpline

	transparency_ramp 1
	value 359 360 361 362 input 363
		position 364
		interp_type kNone

	emission_ramp 1
	value 365 366 367 368 input 369
		position 370
		interp_type kLinear

	environment_ramp 1
	value 371 372 373 374 input 375
		position 376
		interp_type kSmooth

	specular_roll_off_ramp 2
		value 377
		position 378
		interp_type kSpline

		value 379
		position 380
		interp_type kNone

	reflectivity_ramp 1
		value 381
		position 382
		interp_type kLinear
}
USE_BACKGROUND sky
{
	id 707
	hw_shader 701
	colour 236 237 238 239 input 240
}
TEXTURE_PLACEMENT_3D space
{
	id 716
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
		-1.5 0 0 0
		-42.5 -2.5 0 0
		-63 -66.5 3.5 0
		401.5 294.5 53 1
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
	parent 0
	child_joints 1
		719 
	INSTANCE_LIST
	{
	}
}
HW_SHADER program
{
	id 701
}
)";

}  // namespace VKT::Test
