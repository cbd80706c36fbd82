#include "document/FrameReader.h"

#include "nodes/CommentNode.h"
#include "nodes/NodeKeys.h"
#include "nodes/NodePosition.h"
#include "platform/JsonFile.h"
#include "toolkit/controls/Canvas.h"

#include <cmath>

namespace Tesselor {

namespace {

/// A number that is too large for a coordinate is none.
float Number(const cJSON* object, const char* key, float otherwise) {
  const cJSON* item = cJSON_GetObjectItem(object, key);
  const float value = cJSON_IsNumber(item) ? static_cast<float>(item->valuedouble) : otherwise;
  return std::isfinite(value) ? value : otherwise;
}

} // namespace

void ReadFrame(FrameNode& frame, const cJSON* json) {
  const cJSON* position = cJSON_GetObjectItem(json, Keys::Position);
  const Toolkit::Point offset = CanvasOffset(frame);
  Toolkit::Canvas::SetLeft(&frame, Number(position, Keys::X, 0) + offset.x);
  Toolkit::Canvas::SetTop(&frame, Number(position, Keys::Y, 0) + offset.y);
  frame.SetResizeWidth(Number(json, Keys::Width, frame.FrameWidth()));
  frame.SetResizeHeight(Number(json, Keys::Height, frame.FrameHeight()));
  if (const auto name = JsonText(cJSON_GetObjectItem(json, Keys::FrameName))) frame.SetTitle(*name);
  frame.RefreshZIndex();
}

void ReadComment(CommentNode& comment, const cJSON* json) {
  ReadFrame(comment, json);
  if (const auto text = JsonText(cJSON_GetObjectItem(json, Keys::Text))) comment.SetCommentText(*text);
  comment.SetCommentFontSize(Number(json, Keys::FontSize, comment.CommentFontSize()));
}

} // namespace Tesselor
