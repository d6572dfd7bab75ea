#include "support/recordinghost.h"

#include "framework/jxlogmessage.h"
#include "rtl/strutils.h"
#include "rtl/sysutils.h"

namespace jx::test {

namespace {

// The encryption stand-in's helpers: the key byte at a place, a hex digit's value.
char KeyByte(const std::string& key, size_t index) { return key.empty() ? 0 : key[index % key.size()]; }

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

}  // namespace

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

// A reversible stand-in for the host's encryption: each byte mixed with the
// key's byte at its place, written as two hex digits. Decrypting rejects any
// text that is not such hex pairs.
bool RecordingHost::EncryptString(const std::string& plain, const std::string& key, std::string& encrypted) {
  encrypted.clear();
  for (size_t i = 0; i < plain.size(); ++i) {
    encrypted += IntToHex(static_cast<unsigned char>(plain[i] ^ KeyByte(key, i)), 2);
  }
  return true;
}

bool RecordingHost::DecryptString(const std::string& encrypted, const std::string& key, std::string& plain) {
  plain.clear();
  if (encrypted.size() % 2 != 0) return false;
  for (size_t i = 0; i < encrypted.size(); i += 2) {
    const int high = HexDigit(encrypted[i]), low = HexDigit(encrypted[i + 1]);
    if (high < 0 || low < 0) return false;
    plain += static_cast<char>((high * 16 + low) ^ KeyByte(key, i / 2));
  }
  return true;
}

}  // namespace jx::test
