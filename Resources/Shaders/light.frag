#version 330
// Sprites in the light of the level; docs/rendering.md has the equation.
//
// Plain use walks the first `size` of `lights`. With STREAMED defined the lamps come ready for use,
// three vectors each: place and red of the specular colour, ambient and green, diffuse and blue, each
// colour times its strength, the specular one times the material too. Either NEAR of them arrive with
// the sprite, or EVERY_LAMP is defined and all are walked.

in vec3 place;

out vec4 shade;

struct Material {
  vec3 specular;
  float shine;
};

uniform Material material;
uniform vec3 viewPos;  // the view's translation: the eye stands at its negation
uniform int size;

// No light is seen farther away than this, measured in the plane (unit: world units). The device
// reads the value here to know which lamps a sprite can leave out.
uniform float lightReach = 300.0;

const float kBaseShare = 0.5;    // of the unlit colour, so that a dark scene can be read
const float kLampHeight = 80.0;  // a lamp hangs that far above its place (unit: world units)
const int kLights = 64;

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

// What the lamps add up to: a factor for the sprite's own colour and a gloss on top of it.
vec3 glow = vec3(kBaseShare);
vec3 gloss = vec3(0.0);

float Shine(float mirrored) {
#ifdef SHINE_DOUBLINGS  // material.shine is two to that power, and software pays for pow
  for (int i = 0; i < SHINE_DOUBLINGS; ++i) mirrored *= mirrored;
  return mirrored;
#else
  return pow(mirrored, material.shine);
#endif
}

void AddLamp(vec3 lamp, vec3 ambient, vec3 diffuse, vec3 specular, vec3 to_eye) {
  vec3 path = lamp - place;
  float near = max(1.0 - dot(path.xy, path.xy) / (lightReach * lightReach), 0.0);
  path.z += kLampHeight;
  vec3 to_lamp = path * inversesqrt(max(dot(path, path), 1.0));
  vec3 halfway = to_lamp + to_eye;
  float mirrored = max(halfway.z, 0.0) * inversesqrt(max(dot(halfway, halfway), 1e-6));
  glow += (near * near) * (ambient + diffuse * max(to_lamp.z, 0.0));
  gloss += (near * near * Shine(mirrored)) * specular;
}

#ifdef STREAMED

#if defined(EVERY_LAMP)
uniform vec4 lamps[3 * (kLights + 1)];

void AddLamps(vec3 to_eye) {
  int end = 3 * min(size, kLights);
  for (int i = 0; i < end; i += 3) {
    AddLamp(lamps[i].xyz, lamps[i + 1].xyz, lamps[i + 2].xyz,
            vec3(lamps[i].w, lamps[i + 1].w, lamps[i + 2].w), to_eye);
  }
}
#elif NEAR > 0
flat in vec4 lamp_place[NEAR];
flat in vec4 lamp_ambient[NEAR];
flat in vec4 lamp_diffuse[NEAR];

void AddLamps(vec3 to_eye) {
  for (int i = 0; i < NEAR; ++i) {
    AddLamp(lamp_place[i].xyz, lamp_ambient[i].xyz, lamp_diffuse[i].xyz,
            vec3(lamp_place[i].w, lamp_ambient[i].w, lamp_diffuse[i].w), to_eye);
  }
}
#else
void AddLamps(vec3 to_eye) {}
#endif

#else

struct Light {
  vec3 position;
  vec3 ambient;
  vec3 diffuse;
  vec3 specular;
  float ambientStr;
  float diffuseStr;
  float specularStr;
};

uniform Light lights[kLights];

void AddLamps(vec3 to_eye) {
  for (int i = 0; i < min(size, kLights); ++i) {
    AddLamp(lights[i].position, lights[i].ambient * lights[i].ambientStr,
            lights[i].diffuse * lights[i].diffuseStr,
            lights[i].specular * lights[i].specularStr * material.specular, to_eye);
  }
}

#endif

void main() {
#ifdef STREAMED
  vec4 own = Texel() * colour;
#else
  vec4 own = Texel() * ourColour;
#endif
  AddLamps(normalize(-viewPos - place));
  shade = vec4(own.rgb * glow + gloss, own.a);
}
