#version 330
// Sprites that no light changes.
//
// Plain use: one object a draw, placed by the three matrices. With STREAMED defined the vertices
// arrive in the world already, and colour and texture unit ride along with them, so that one draw
// holds many objects.

layout(location = 0) in vec3 position;
layout(location = 1) in vec2 uv;

uniform mat4 view;
uniform mat4 ratio;

#ifdef STREAMED

out vec3 spot;  // z: texture unit; one varying less is quicker to set up

layout(location = 6) in vec4 tint;
layout(location = 7) in float unit;

flat out vec4 colour;

void main() {
  gl_Position = ratio * (view * vec4(position, 1.0));
  spot = vec3(uv, unit);
  colour = tint;
}

#else

out vec2 spot;

uniform mat4 translate;
uniform mat4 rotate;
uniform mat4 scale;

void main() {
  gl_Position = ratio * (view * (translate * (rotate * (scale * vec4(position, 1.0)))));
  spot = uv;
}

#endif
