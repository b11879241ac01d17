// SPDX-License-Identifier: MIT
#pragma once

class AnnotationTool;
class wxJSONValue;

/// How many objects of a document the tool that has read it left out: they cannot be read, or leave
/// no trace.
int ObjectsLeftOut(wxJSONValue const &document, AnnotationTool const &tool);
