// SPDX-License-Identifier: MIT
// Documents: the tool's own, altered ones, and those that no tool writes.
#include <limits>
#include <string>

#include "framenote/annotation_events.h"
#include "host/host_calls.h"
#include "host/host_session.h"
#include "talbase/json_text.h"

namespace framenote::fuzz {

namespace {

/// Each is what a host may give, and what is not in the others.
char const *const kForeign[] = {
    "7",
    "{}",
    R"({"Annotate":{}})",
    R"({"Annotate":{"Objects":[]}})",
    R"({"Annotate":{"ExtensionColor":null,"Objects":{"Id":2}}})",
    // A range the wrong way round, and far from its run
    R"({"Annotate":{"Objects":[{"Id":2,"StartFrame":9,"EndFrame":2,"Coordinates":[
        {"Range":[0,3],"TopLeft":[4,4],"TopRight":[40,4],"BottomRight":[40,30],
         "BottomLeft":[4,30]}]}]}})",
    // No run at all, and frames at the ends of what an integer holds
    R"({"Annotate":{"Objects":[{"Id":4,"StartFrame":-9223372036854775808,
        "EndFrame":9223372036854775807,"PathDiffs":[],"Coordinates":[]}]}})",
    // Runs that overlap and leave gaps, beyond the media
    R"({"Annotate":{"Objects":[{"Id":3,"StartFrame":0,"EndFrame":40,"Coordinates":[
        {"Range":[5,30],"Head":[30,30],"Tail":[2,2]},{"Range":[0,9],"Head":[9,9],"Tail":[1,5]},
        {"Range":[32,33],"Head":[1e300,-1e300],"Tail":[2147483647,0]}]}]}})",
    // A lens whose centre is elsewhere, in other frames
    R"({"Annotate":{"Objects":[{"Id":8,"CoordinatesCenterPoint":[
        {"Range":[2,3],"CenterPoint":[5,1e308]}],"Rectangle":{"StartFrame":0,"EndFrame":3,
        "Coordinates":[{"Range":[0,3],"TopLeft":[4,4],"TopRight":[40,4],"BottomRight":[40,30],
        "BottomLeft":[4,30]}]}}]}})",
    // A region that is turned and mirrored, with an unknown effect
    R"({"Annotate":{"Objects":[{"Id":7,"Properties":{"Effect":5,"Strength":-3,"Shape":9},
        "Rectangle":{"StartFrame":0,"EndFrame":1,"Coordinates":[{"Range":[0,1],
        "TopLeft":[40,4],"TopRight":[4,10],"BottomRight":[8,30],"BottomLeft":[44,30]}]}}]}})",
};

wxJSONValue AlteredLeaf(int choice) {
  switch (choice % 12) {
    case 0:
      return -1;
    case 1:
      return 3;
    case 2:
      return wxJSONValue(wxJSONTYPE_NULL);
    case 3:
      return "";
    case 4:
      return wxJSONValue(wxJSONTYPE_ARRAY);
    case 5:
      return wxJSONValue(wxJSONTYPE_OBJECT);
    case 6:
      return true;
    case 7:
      return 1e308;
    case 8:
      return -1e308;
    case 9:
      return static_cast<long long>(std::numeric_limits<std::int64_t>::max());
    case 10:
      return static_cast<long long>(std::numeric_limits<std::int64_t>::min());
    default:
      return 0.5;
  }
}

/// `value` with what lies at the end of a way changed. Each byte of the way chooses a member or an
/// element; the way ends where there is none.
wxJSONValue Altered(wxJSONValue const &value, ByteReader &way, int choice) {
  int const size = value.Size();
  if (size == 0) return AlteredLeaf(choice);
  int const index = way.Below(size);
  wxJSONValue copy = value;
  if (value.IsArray()) {
    copy.Item(index) = Altered(value.ItemAt(index), way, choice);
    return copy;
  }
  wxString const key = value.GetMemberNames()[static_cast<std::size_t>(index)];
  copy.Set(key, Altered(value.ItemAt(key), way, choice));
  return copy;
}

}  // namespace

void CallKeepDocument(HostSession &session, ByteReader &) {
  session.Keep();
}

void CallLoadDocument(HostSession &session, ByteReader &bytes) {
  if (bytes.Flag()) {
    session.LoadKept();
  } else {
    session.Load(session.Document(), !session.HasOwnObjectsOnly());
  }
}

void CallLoadForeign(HostSession &session, ByteReader &bytes) {
  session.Load(JsonFromUtf8(bytes.Pick(kForeign)), true);
}

void CallLoadAltered(HostSession &session, ByteReader &bytes) {
  // The objects alone: what else there is hardly matters.
  wxJSONValue document = session.Document();
  wxJSONValue annotate = document.ItemAt(AnnotationJsonChangedEvent::m_annotateKey);
  int const choice = bytes.Byte();
  annotate.Set("Objects", Altered(annotate.ItemAt("Objects"), bytes, choice));
  document.Set(AnnotationJsonChangedEvent::m_annotateKey, annotate);
  session.Load(document, true);
}

void CallCloneFrom(HostSession &session, ByteReader &bytes) {
  AnnotationTool other(session.Tool().GetConfig());
  other.FromJSON(session.Document(), session.FrameCount());
  if (bytes.Flag()) other.SetImage(MakePicture(32, 24), false);
  bool const foreign = !session.HasOwnObjectsOnly();
  session.Tool().CloneFrom(other);
  session.NoteLoaded(foreign);
}

}  // namespace framenote::fuzz
