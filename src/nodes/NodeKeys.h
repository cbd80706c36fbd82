#pragma once

namespace Tesselor {

/// The keys of an asset file that are the editor's own. Read in any letter case, written as they stand here.
namespace Keys {
inline constexpr char NodeId[] = "$NodeId";
inline constexpr char Title[] = "$Title";
inline constexpr char Comment[] = "$Comment";
inline constexpr char Name[] = "Name";
inline constexpr char Position[] = "$Position";
inline constexpr char RootNodePosition[] = "$RootNodePosition";
inline constexpr char X[] = "$x";
inline constexpr char Y[] = "$y";
inline constexpr char Generic[] = "$Generic";
inline constexpr char Link[] = "$Link";
inline constexpr char Key[] = "$Key";
inline constexpr char Value[] = "$Value";
inline constexpr char Children[] = "Children";
inline constexpr char FileName[] = "$FileName";

/// The member that a copy's objects have for what the form of the clipboard leaves out; see document/CopyDetails.h.
inline constexpr char Copied[] = "$Copied";
inline constexpr char Label[] = "label";
inline constexpr char MapKey[] = "mapKey";
inline constexpr char Connections[] = "connections";
inline constexpr char CopiedLinks[] = "links";
inline constexpr char HiddenPins[] = "hiddenPins";

inline constexpr char AdditionalProperties[] = "$AdditionalProperties$Pin";
inline constexpr char AdditionalParameters[] = "$AdditionalParameterProperties$Pin";

inline constexpr char Metadata[] = "$NodeEditorMetadata";
inline constexpr char Nodes[] = "$Nodes";
inline constexpr char FloatingNodes[] = "$FloatingNodes";
inline constexpr char FormerFloatingNodes[] = "FloatingFunctionNodes";
inline constexpr char Links[] = "$Links";
inline constexpr char Groups[] = "$Groups";
inline constexpr char Comments[] = "$Comments";
inline constexpr char WorkspaceId[] = "$WorkspaceID";
inline constexpr char InputConnections[] = "inputConnections";
inline constexpr char OutputConnections[] = "outputConnections";
inline constexpr char SourceEndpoint[] = "sourceEndpoint";
inline constexpr char TargetEndpoint[] = "targetEndpoint";
inline constexpr char Width[] = "$width";
inline constexpr char Height[] = "$height";
inline constexpr char FrameName[] = "$name";
inline constexpr char Text[] = "$text";
inline constexpr char FontSize[] = "$fontSize";
} // namespace Keys

/// The ids of the built-in node types, and of their pins.
namespace BuiltIn {
inline constexpr char Generic[] = "Generic";
inline constexpr char Link[] = "Link";
inline constexpr char GenericIn[] = "GenericIn";
inline constexpr char GenericOut[] = "GenericOut";
} // namespace BuiltIn

/// The text that stands for an absent comment.
inline constexpr char NoComment[] = "Comment";

} // namespace Tesselor
