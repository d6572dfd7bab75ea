#include "support/recordinghost.h"

#include "framework/jxlogmessage.h"
#include "rtl/sysutils.h"

namespace jx::test {

// %NAME% from Variables, %% gives %; a lone % is literal. Enough for tests.
std::string RecordingHost::ExpandExpression(const std::string& text, int& count, bool) {
  std::string out;
  count = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      out += text[i];
      continue;
    }
    size_t close = text.find('%', i + 1);
    if (close == std::string::npos) {
      out += text.substr(i);
      break;
    }
    std::string name = text.substr(i + 1, close - i - 1);
    if (name.empty()) {
      out += '%';
    } else {
      auto it = Variables.find(name);
      if (it == Variables.end()) throw Exception("Variable \"" + name + "\" is not defined");
      out += it->second.ToString();
      ++count;
    }
    i = close;
  }
  return out;
}

std::string RecordingHost::ExpandExpression(const std::string& text, bool flag) {
  int count = 0;
  return ExpandExpression(text, count, flag);
}

bool RecordingHost::TryExpandExpression(TCustomJXAction& action, const std::string& caption,
                                        const std::string& text, std::string& result, bool flag) {
  try {
    result = ExpandExpression(text, flag);
  } catch (const Exception& e) {
    SendMessage(action, "Unable to expand " + caption + " : " + e.Message());
    return false;
  }
  // The flag asks for a value: a path that expands to nothing must not become the root.
  if (flag && result.empty()) {
    SendMessage(action, "Unable to expand " + caption + " : the expanded text is empty");
    return false;
  }
  return true;
}

Variant RecordingHost::GetVariableValue(const std::string& name) {
  auto it = Variables.find(name);
  return it == Variables.end() ? Variant() : it->second;
}

void RecordingHost::SendMessage(TCustomJXAction&, const std::string& text) { Lines.push_back(text); }

IJXActionLogMessagePtr RecordingHost::CreateStatusMessage() { return std::make_shared<TJXLogMessage>(); }

void RecordingHost::SendStatusMessage(TCustomJXAction&, const IJXActionLogMessagePtr& message) {
  std::vector<std::string> block;
  if (!message->GetMessageText().empty()) block.push_back(message->GetMessageText());
  for (const std::string& line : message->GetLines().Lines()) block.push_back(line);
  Lines.insert(Lines.end(), block.begin(), block.end());
  Blocks.push_back(std::move(block));
}

void RecordingHost::Synchronize(const std::function<void()>& method) {
  ++SynchronizeCalls;
  method();
}

void RecordingHost::UpdateKeyValue(TCustomJXAction& action, int index, const std::string& old_value,
                                   const std::string& new_value) {
  KeyUpdates.push_back({index, old_value, new_value});
  action.SetDescriptionKeyValue(index, new_value);
}

bool RecordingHost::ExecuteScript(TCustomJXAction&, const std::string& name, Variant&) {
  ScriptsRun.push_back(name);
  return ScriptResult;
}

// A reversible stand-in for the host's encryption: the key in brackets, then
// the text. Decrypting refuses a text that does not start with that key.
bool RecordingHost::EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) {
  encrypted = "[" + key + "]" + plain;
  return true;
}

bool RecordingHost::DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) {
  const std::string prefix = "[" + key + "]";
  if (encrypted.rfind(prefix, 0) != 0) return false;
  plain = encrypted.substr(prefix.size());
  return true;
}

}  // namespace jx::test
