# All libraries come from Debian's packages; packages.txt says why each is there.
find_package(PkgConfig REQUIRED)
find_package(SDL2 2.26 CONFIG REQUIRED)
find_package(X11 REQUIRED)
set(OpenGL_GL_PREFERENCE GLVND)
find_package(OpenGL REQUIRED)
find_package(GLEW 2.2 REQUIRED)
find_package(Freetype 2.12 REQUIRED)
find_package(glm 0.9.9.8 CONFIG REQUIRED)
find_package(RTTR 0.9.6 CONFIG REQUIRED COMPONENTS Core)
find_package(RapidJSON 1.1 CONFIG REQUIRED)
pkg_check_modules(STB REQUIRED IMPORTED_TARGET stb)
find_package(OpenAL REQUIRED)
pkg_check_modules(SNDFILE REQUIRED IMPORTED_TARGET sndfile)
pkg_check_modules(IMGUI REQUIRED IMPORTED_TARGET imgui)

add_library(carapace_dependencies INTERFACE)
target_include_directories(carapace_dependencies SYSTEM INTERFACE ${RAPIDJSON_INCLUDE_DIRS})
target_link_libraries(carapace_dependencies INTERFACE
  SDL2::SDL2 X11::X11 GLEW::GLEW OpenGL::GLU OpenGL::GL Freetype::Freetype glm::glm RTTR::Core
  PkgConfig::STB OpenAL::OpenAL PkgConfig::SNDFILE PkgConfig::IMGUI)

# clang wants the element type of a default argument in rttr/type.h complete, which it is not there. It
# reads a copy of the headers without that default, on which nothing here relies.
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  find_path(RTTR_INCLUDE_DIR rttr/type.h REQUIRED)
  file(COPY ${RTTR_INCLUDE_DIR}/rttr DESTINATION ${CMAKE_BINARY_DIR}/clang REGEX "/rttr/type\\.h$" EXCLUDE)
  file(READ ${RTTR_INCLUDE_DIR}/rttr/type.h rttr_type_header)
  string(REPLACE " = std::vector<argument>()" "" rttr_type_header "${rttr_type_header}")
  file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/clang/rttr/type.h CONTENT "${rttr_type_header}" @ONLY)
  target_include_directories(carapace_dependencies SYSTEM BEFORE INTERFACE ${CMAKE_BINARY_DIR}/clang)
endif()

# The game's font is Debian's package of an OFL font. It is copied beside the other run-time data, so
# that graphics.json can name it.
find_file(CARAPACE_FONT Play-Bold.ttf
  PATHS /usr/share/fonts/truetype/play /usr/share/fonts/truetype/fonts-play /usr/share/fonts
  PATH_SUFFIXES truetype/play REQUIRED)
file(COPY ${CARAPACE_FONT} DESTINATION ${CMAKE_SOURCE_DIR}/Resources/Fonts)
