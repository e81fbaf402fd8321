#include "editor/shell/toolswindow.h"

#include <SDL.h>
#include <imgui.h>

#include <backends/imgui_impl_opengl3.h>
#include <backends/imgui_impl_sdl.h>

#include "platform/native.h"
#include "platform/windowsystem.h"
#include "render/gldevice.h"
#include "render/rendersystem.h"

namespace ZOVEngine {
namespace {

constexpr float kTextHeight = 17.0f;  // (unit: pixels)
constexpr int kMostEvents = 200;      // in a frame, so that no flood of them can hold it up

void LoadFont() {
  ImGui::GetIO().Fonts->AddFontFromFileTTF(g_render_system->m_font_path.c_str(), kTextHeight);
}

ImVec4 Colour(int red, int green, int blue, float alpha = 1.0f) {
  constexpr float kFull = 255.0f;
  return ImVec4(static_cast<float>(red) / kFull, static_cast<float>(green) / kFull,
                static_cast<float>(blue) / kFull, alpha);
}

void ApplyColours(ImVec4* colours) {
  const ImVec4 panel = Colour(16, 22, 46), raised = Colour(42, 53, 88), edge = Colour(70, 85, 127);
  const ImVec4 accent = Colour(255, 201, 77), green = Colour(18, 138, 102);
  colours[ImGuiCol_Text] = Colour(242, 245, 255);
  colours[ImGuiCol_TextDisabled] = Colour(143, 160, 204);
  colours[ImGuiCol_WindowBg] = panel;
  colours[ImGuiCol_PopupBg] = panel;
  colours[ImGuiCol_Border] = edge;
  colours[ImGuiCol_FrameBg] = Colour(11, 16, 36);
  colours[ImGuiCol_FrameBgHovered] = raised;
  colours[ImGuiCol_FrameBgActive] = edge;
  colours[ImGuiCol_TitleBg] = colours[ImGuiCol_MenuBarBg] = Colour(11, 16, 36);
  colours[ImGuiCol_TitleBgActive] = raised;
  colours[ImGuiCol_TitleBgCollapsed] = Colour(11, 16, 36, 0.9f);
  colours[ImGuiCol_Button] = raised;
  colours[ImGuiCol_ButtonHovered] = edge;
  colours[ImGuiCol_ButtonActive] = green;
  colours[ImGuiCol_Header] = raised;
  colours[ImGuiCol_HeaderHovered] = edge;
  colours[ImGuiCol_HeaderActive] = green;
  colours[ImGuiCol_CheckMark] = accent;
  // A slider's number is written over its grip, a progress over its bar.
  colours[ImGuiCol_SliderGrab] = colours[ImGuiCol_PlotHistogram] = Colour(134, 98, 22);
  colours[ImGuiCol_SliderGrabActive] = green;
  colours[ImGuiCol_Tab] = Colour(11, 16, 36);
  colours[ImGuiCol_TabHovered] = edge;
  colours[ImGuiCol_TabActive] = raised;
  colours[ImGuiCol_TabUnfocused] = Colour(11, 16, 36);
  colours[ImGuiCol_TabUnfocusedActive] = raised;
  colours[ImGuiCol_NavHighlight] = accent;
  colours[ImGuiCol_ModalWindowDimBg] = Colour(5, 3, 15, 0.6f);
}

}  // namespace

void ApplyEditorStyle() {
  ImGuiStyle& style = ImGui::GetStyle();
  style.WindowRounding = 0.0f;
  style.FrameRounding = style.GrabRounding = style.TabRounding = 3.0f;
  style.WindowBorderSize = style.FrameBorderSize = 1.0f;
  style.FramePadding = ImVec2(7.0f, 4.0f);
  style.ItemSpacing = ImVec2(7.0f, 5.0f);
  style.ScrollbarSize = 13.0f;
  ApplyColours(style.Colors);
}

ToolsWindow::ToolsWindow() {
  ImGui::CreateContext();
  ImGuiIO& io = ImGui::GetIO();
  io.IniFilename = nullptr;  // the layout is the editor's own
  LoadFont();
  ApplyEditorStyle();
  ImGui_ImplSDL2_InitForOpenGL(static_cast<SDL_Window*>(g_native->WindowHandle()),
                               g_native->ContextHandle());
  ImGui_ImplOpenGL3_Init("#version 130");
}

ToolsWindow::~ToolsWindow() {
  SetLive(false);
  ImGui_ImplOpenGL3_Shutdown();
  ImGui_ImplSDL2_Shutdown();
  ImGui::DestroyContext();
}

void ToolsWindow::SetLive(bool live) {
  g_window_state.imguiLive = live;
  PutStillDevice(live);
  PlatformEventListener listener;
  if (live) {
    const NativePoint cursor = g_native->CursorPosition();
    m_input.Reset(ImVec2(static_cast<float>(cursor.x), static_cast<float>(cursor.y)));
    listener = [this](const void* platform_event) { TakeEvent(platform_event); };
  }
  SetToolsListener(listener);
  // Typed text is among the events that the game has no use for.
  g_native->SetSkippedEventListener(listener);
}

/// What happens to a window, such as its coming out from behind another one, may cost it its image.
void ToolsWindow::TakeEvent(const void* platform_event) {
  const SDL_Event& event = *static_cast<const SDL_Event*>(platform_event);
  m_stale = m_stale || event.type == SDL_WINDOWEVENT;
  m_input.Take(event);
}

void ToolsWindow::PutStillDevice(bool live) {
  if (live == (m_still != nullptr)) return;
  if (live) {
    m_device = g_gl_device;
    const ImVec4 panel = ImGui::GetStyleColorVec4(ImGuiCol_WindowBg);
    m_still = std::make_unique<StillDevice>(
        m_device,
        StillDevice::Keeper{[this] { m_picture.Keep(CurrentViewport()); },
                            [this, panel] {
                              m_picture.ShowAmid({panel.x, panel.y, panel.z}, CurrentViewport());
                            }});
    g_gl_device = m_still.get();
  } else {
    g_gl_device = m_device;
    m_still.reset();
  }
}

void ToolsWindow::TakeEvents() {
  NativeEvent event;
  for (int i = 0; i < kMostEvents && !m_input.IsFrameFull() && g_native->PumpEvent(&event); ++i) {
    WindowProcedure(event);
  }
}

void ToolsWindow::BeginFrame() {
  m_input.Feed([](const SDL_Event& event) { ImGui_ImplSDL2_ProcessEvent(&event); });
  ImGui_ImplOpenGL3_NewFrame();
  ImGui_ImplSDL2_NewFrame();
  m_input.Apply(&ImGui::GetIO());
  ImGui::NewFrame();
}

void ToolsWindow::EndFrame() {
  ImGui::Render();
  const bool is_new = m_panels.Take(*ImGui::GetDrawData()) || m_still->IsNew() || m_stale;
  m_stale = is_new;
  if (!is_new || !m_still->IsReady() || g_native->IsMinimised()) return;
  m_stale = false;
  m_still->Show();
  ImGui_ImplOpenGL3_RenderDrawData(ImGui::GetDrawData());
  g_gl_device->Present();
}

}  // namespace ZOVEngine
