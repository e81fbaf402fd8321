#version 330
// Sprites that no light changes: texture times colour.
//
// With STREAMED defined, SLOTS is the number of textures to choose from, one or eight. The choice is
// the same for a whole triangle. INDEXED picks by number, which only drivers that run a triangle's
// fragments apart from its neighbours' may do; without it a chain of comparisons does the same.

out vec4 shade;

uniform vec3 viewPos;  // part of the interface; takes no part without light

#ifdef STREAMED
in vec3 spot;  // z: texture unit
flat in vec4 colour;
#else
in vec2 spot;
uniform vec4 ourColour;
#define SLOTS 1
#endif

#if SLOTS == 1
uniform sampler2D picture;
#else
uniform sampler2D pictures[SLOTS];
#endif

vec4 Texel() {
#if SLOTS == 1
  return texture(picture, spot.xy);
#else
  int slot = int(spot.z + 0.5);
#if defined(INDEXED)
  return texture(pictures[slot], spot.xy);
#else
  if (slot == 0) return texture(pictures[0], spot.xy);
  else if (slot == 1) return texture(pictures[1], spot.xy);
  else if (slot == 2) return texture(pictures[2], spot.xy);
  else if (slot == 3) return texture(pictures[3], spot.xy);
  else if (slot == 4) return texture(pictures[4], spot.xy);
  else if (slot == 5) return texture(pictures[5], spot.xy);
  else if (slot == 6) return texture(pictures[6], spot.xy);
  else return texture(pictures[7], spot.xy);
#endif
#endif
}

void main() {
#ifdef STREAMED
  shade = Texel() * colour;
#else
  shade = Texel() * ourColour;
#endif
}
