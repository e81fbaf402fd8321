#version 330
// Sprites in the light of the level.
//
// Plain use: one object a draw, placed by the three matrices, and the fragment shader walks all of
// `lights`. With STREAMED defined the vertices arrive in the world already, with colour and texture
// unit, and each carries the numbers of the NEAR lamps that can reach its sprite, eight bits each.
// Their values are fetched here, once a vertex, and passed on unchanged, which costs a fragment
// far less than fetching them itself.

layout(location = 0) in vec3 position;
layout(location = 1) in vec2 uv;

uniform mat4 view;
uniform mat4 ratio;

out vec3 place;

#ifdef STREAMED

out vec3 spot;  // z: texture unit; one varying less is quicker to set up

layout(location = 6) in vec4 tint;
layout(location = 7) in float unit;
layout(location = 8) in uvec2 near;

flat out vec4 colour;

#if NEAR > 0
// Three vectors a lamp (see light.frag); the last lamp is dark and fills up short lists.
uniform vec4 lamps[3 * 65];
flat out vec4 lamp_place[NEAR];
flat out vec4 lamp_ambient[NEAR];
flat out vec4 lamp_diffuse[NEAR];

void FetchLamps() {
  for (int i = 0; i < NEAR; ++i) {
    int lamp = 3 * int((near[i / 4] >> uint(8 * (i % 4))) & 255u);
    lamp_place[i] = lamps[lamp];
    lamp_ambient[i] = lamps[lamp + 1];
    lamp_diffuse[i] = lamps[lamp + 2];
  }
}
#else
void FetchLamps() {}
#endif

void main() {
  gl_Position = ratio * (view * vec4(position, 1.0));
  spot = vec3(uv, unit);
  place = position;
  colour = tint;
  FetchLamps();
}

#else

out vec2 spot;

uniform mat4 translate;
uniform mat4 rotate;
uniform mat4 scale;

void main() {
  vec4 world = translate * (rotate * (scale * vec4(position, 1.0)));
  gl_Position = ratio * (view * world);
  spot = uv;
  place = world.xyz;
}

#endif
