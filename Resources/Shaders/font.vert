#version 330
// Text: rectangles that stand in the world already. With STREAMED defined the colour rides along
// with the vertices, so that texts of different colours share a draw.

layout(location = 0) in vec3 position;
layout(location = 1) in vec2 uv;

uniform mat4 view;
uniform mat4 ratio;

out vec2 spot;

#ifdef STREAMED
layout(location = 6) in vec4 tint;
flat out vec4 colour;
#endif

void main() {
  gl_Position = ratio * (view * vec4(position, 1.0));
  spot = uv;
#ifdef STREAMED
  colour = tint;
#endif
}
