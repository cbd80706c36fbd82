#pragma once

struct cJSON;

namespace Tesselor {

class CommentNode;
class FrameNode;

/// Groups and comments from JSON: place, size, title and stacking order, and a comment's text and font size. What is
/// missing, or is of another type than it should be, stays as it is; a missing coordinate counts as 0. Positions keep
/// their fractions. The frame stands on its panel already.
void ReadFrame(FrameNode& frame, const cJSON* json);
void ReadComment(CommentNode& comment, const cJSON* json);

} // namespace Tesselor
