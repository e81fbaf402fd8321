#version 330
// Text: the red channel is how much of the fragment the glyph covers.

in vec2 spot;

out vec4 shade;

uniform sampler2D picture;

#ifdef STREAMED
flat in vec4 colour;
#else
uniform vec4 textColour;
#endif

void main() {
  float cover = texture(picture, spot).r;
#ifdef STREAMED
  shade = vec4(1.0, 1.0, 1.0, cover) * colour;
#else
  shade = vec4(1.0, 1.0, 1.0, cover) * textColour;
#endif
}
