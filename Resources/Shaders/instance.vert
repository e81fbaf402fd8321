#version 330
// Particles, in the light of the level.
//
// Plain use: one quad, drawn once for each matrix. With STREAMED defined the corners of all quads
// arrive in the world already, and each brings the numbers of the NEAR lamps that can reach its
// particle, as in light.vert.

layout(location = 0) in vec3 position;
layout(location = 1) in vec2 uv;
#ifndef STREAMED
layout(location = 2) in mat4 model;  // attributes 2 to 5, one an instance
#endif

uniform mat4 view;
uniform mat4 ratio;

out vec2 spot;
out vec3 place;

#if defined(STREAMED) && NEAR > 0
layout(location = 8) in uvec2 near;

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
#ifdef STREAMED
  vec4 world = vec4(position, 1.0);
#else
  vec4 world = model * vec4(position, 1.0);
#endif
  gl_Position = ratio * (view * world);
  spot = uv;
  place = world.xyz;
  FetchLamps();
}
