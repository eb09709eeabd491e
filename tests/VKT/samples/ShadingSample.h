#pragma once

namespace VKT::Test {

// One node of each class that gives surfaces their look. See Samples.h. Ids 700 to 799.
inline constexpr char kShadingSample[] =
    R"(|VKT_004A#0000#00000000|
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
USE_BACKGROUND sky
{
	id 707
	hw_shader 701
	colour 236 237 238 239 input 240
}
HW_SHADER program
{
	id 701
}
)";

}  // namespace VKT::Test
