# Writes the waveform's function as one of Qt Quick's: SOURCE to OUTPUT. Its uniforms arrive in the
# way of a ShaderEffect, and it encodes its light itself.
cmake_minimum_required(VERSION 3.25)
cmake_path(GET SOURCE PARENT_PATH folder)
file(READ "${SOURCE}" text)
function(put old new)
  string(FIND "${text}" "${old}" found)
  if(found EQUAL -1)
    message(FATAL_ERROR "${SOURCE} has no longer: ${old}")
  endif()
  string(REPLACE "${old}" "${new}" text "${text}")
  set(text "${text}" PARENT_SCOPE)
endfunction()
file(READ "${folder}/family.glsl" family)
put("#include \"family.glsl\"" "${family}")
put("layout(location = 0) in vec2 point;" "layout(location = 0) in vec2 qt_TexCoord0;
#define point (vec2(2.0, -2.0) * qt_TexCoord0 + vec2(-1.0, 1.0))")
put("    vec2 resolution;
    uint seed;
    float time;" "    mat4 qt_Matrix;
    float qt_Opacity;
    float time;
    float seedValue;
    vec2 resolution;")
put("void main()" "#define seed uint(seedValue)
void visual()")
string(APPEND text "
void main()
{
    visual();
    vec3 linear = clamp(light.rgb + vec3(0.0075, 0.0056, 0.0137), 0.0, 1.0);
    light = vec4(pow(linear, vec3(1.0 / 2.2)), 1.0) * qt_Opacity;
}
")
file(WRITE "${OUTPUT}" "${text}")
