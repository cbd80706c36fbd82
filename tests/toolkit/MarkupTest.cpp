#include "toolkit/MarkupTest.h"

#include "ToolkitEnvironment.h"
#include "toolkit/markup/DocumentCompiler.h"

#include <map>
#include <sstream>

namespace Toolkit {

namespace {
Key LetterKey(int index) { return static_cast<Key>(static_cast<int>(Key::A) + index); }
} // namespace

TOOLKIT_TYPE_IMPL(TestData, NotifyPropertyChangedBase, "Tesselor.TestData")
void TestData::Describe(TypeBuilder<TestData>& type) {
  type.Member<&TestData::GetText, &TestData::SetText>("Text");
  type.Member<&TestData::GetNumber, &TestData::SetNumber>("Number");
  type.Member<&TestData::GetNext, &TestData::SetNext>("Next");
}

Ptr<TestItems> MakeItems(const std::vector<std::string>& texts) {
  auto items = MakePtr<TestItems>();
  for (const std::string& text : texts) items->Add(MakePtr<TestData>(text));
  return items;
}

MarkupTest::MarkupTest() {
  TestSupport::ToolkitEnvironment::Start([] { TestData::StaticType(); });
}

Ptr<Object> MarkupTest::MakeObject(const std::string& text) {
  texts.push_back(std::make_unique<std::string>(text));
  std::unique_ptr<ElementPlan> plan = DocumentCompiler("test.xaml", *texts.back(), [](std::string_view) {
                                        return Ptr<ResourceDictionary>();
                                      }).Compile();
  if (!plan) return nullptr;
  plans.push_back(std::move(plan));
  return Instantiation(nullptr, nullptr, false).Create(*plans.back());
}

void StageTest::Show(const std::string& content, Size size) {
  TakeWindowDown();
  window = Make<Window>("Window", ">" + content + "</Window>");
  ASSERT_TRUE(window) << content;
  Put(*window, size);
}

void StageTest::TakeWindowDown() {
  const WeakPtr<Window> observed(window);
  TakeDown();
  window.Reset();
  EXPECT_FALSE(observed) << "something still holds the window";
}

bool StageTest::Run(const std::string& script) {
  std::istringstream words(script);
  bool taken = false;
  for (std::string word; words >> word;) taken = Play(word);
  return taken;
}

bool StageTest::Play(const std::string& word) {
  static const std::map<std::string, Key> keys{
      {"Ctrl", Key::LeftCtrl}, {"Shift", Key::LeftShift},   {"Left", Key::Left},     {"Right", Key::Right},
      {"Up", Key::Up},         {"Down", Key::Down},         {"Home", Key::Home},     {"End", Key::End},
      {"PageUp", Key::PageUp}, {"PageDown", Key::PageDown}, {"Back", Key::Back},     {"Delete", Key::Delete},
      {"Insert", Key::Insert}, {"Return", Key::Return},     {"Escape", Key::Escape}, {"Space", Key::Space},
      {"Tab", Key::Tab},       {"F10", Key::F10},           {"Apps", Key::Apps}};
  if (word[0] == '\'') return TypeLetters(word.substr(1, word.find('\'', 1) - 1));
  if (word == "leave") return Leave(), false;
  const size_t colon = word.find(':');
  if (colon == std::string::npos) {
    std::istringstream names(word);
    std::vector<Key> chord;
    for (std::string name; std::getline(names, name, '+');)
      chord.push_back(name.size() == 1 ? LetterKey(name[0] - 'A') : keys.at(name));
    return Chord(chord);
  }
  const std::string verb = word.substr(0, colon), rest = word.substr(colon + 1), at = rest.substr(0, rest.find(':'));
  if (verb == "wait") return Wait(std::stod(at)), false;
  const size_t comma = at.find(',');
  const TestSupport::Spot spot = comma == std::string::npos
                                     ? TestSupport::Spot(Find(at.c_str()))
                                     : TestSupport::Spot(std::stof(at), std::stof(at.substr(comma + 1)));
  if (verb == "wheel") return Wheel(spot, std::stof(rest.substr(at.size() + 1)));
  if (verb == "press") return Press(spot);
  if (verb == "release") return Release(spot);
  if (verb == "move") return MoveTo(spot), false;
  EXPECT_TRUE(verb == "click" || verb == "right" || verb == "double") << verb;
  Click(spot, {verb == "right" ? MouseButton::Right : MouseButton::Left, verb == "double" ? 2u : 1u});
  return false;
}

bool StageTest::TypeLetters(const std::string& text) {
  bool taken = false;
  // A byte of a longer character is no letter of its own.
  for (size_t i = 0, end; i < text.size(); i = end) {
    for (end = i + 1; end < text.size() && (text[end] & 0xc0) == 0x80;) ++end;
    const bool isBlank = text[i] == '_', isLetter = text[i] >= 'a' && text[i] <= 'z';
    Press(isBlank ? Key::Space : isLetter ? LetterKey(text[i] - 'a') : Key::None);
    taken = Type(isBlank ? " " : text.substr(i, end - i));
  }
  return taken;
}

} // namespace Toolkit
