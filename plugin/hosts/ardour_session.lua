-- Makes a session with the plug-in on a track: ardour7-lua ardour_session.lua FOLDER NAME URI
-- PORT:FIRST:LAST:SECONDS:MODE. The value of the port goes from the first to the last in so many seconds,
-- in that mode of automation (Play, Touch); the plug-in's oscillator is heard alone.
local folder, name, uri = arg[1], arg[2], arg[3]
local port, first, last, seconds, mode = arg[4]:match("(%d+):([-%d]+):([-%d]+):(%d+):(%a+)")
local soloParameter = 13
AudioEngine:set_backend("None (Dummy)", "ardour", "")
local session = create_session(folder, name, 48000)
assert(session, "no session")
local track = session:new_audio_track(1, 2, nil, 1, "Voice", ARDOUR.PresentationInfo.max_order,
                                      ARDOUR.TrackMode.Normal, true):front()
local plugin = ARDOUR.LuaAPI.new_plugin(session, uri, ARDOUR.PluginType.LV2, "")
assert(not plugin:isnil(), "no plug-in")
assert(track:add_processor_by_index(plugin, 0, nil, true) == 0, "not on the track")
local lane = plugin:to_insert():to_automatable():automation_control(
    Evoral.Parameter(ARDOUR.AutomationType.PluginAutomation, 0, tonumber(port)), true)
assert(not lane:isnil(), "no automation")
lane:alist():add(Temporal.timepos_t(0), tonumber(first), false, true)
lane:alist():add(Temporal.timepos_t(48000 * tonumber(seconds)), tonumber(last), false, true)
lane:set_automation_state(ARDOUR.AutoState[mode])
ARDOUR.LuaAPI.set_processor_param(plugin, soloParameter, 1)
-- Other threads connect the track and set the value, and on a busy machine not at once.
local function isReady()
  return track:output():audio(0):connected() and ARDOUR.LuaAPI.get_processor_param(plugin, soloParameter) == 1
end
for _ = 1, 200 do
  if isReady() then break end
  ARDOUR.LuaAPI.usleep(50000)
end
assert(isReady(), "the oscillator is not heard alone on the way out")
session:save_state("", false, false, false, false, false)
close_session()
