// SPDX-License-Identifier: MIT
#include "project/left_out_objects.h"

#include "framenote/annotation_events.h"
#include "framenote/annotation_tool.h"
#include "talbase/json_value.h"

int ObjectsLeftOut(wxJSONValue const &document, AnnotationTool const &tool) {
  wxJSONValue const annotate = document.ItemAt(AnnotationJsonChangedEvent::m_annotateKey);
  return annotate.ItemAt("Objects").Size() - static_cast<int>(tool.AnnotationObjects().size());
}
