#include "host/stringcipher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <utility>

namespace jx {
namespace {

using namespace std::string_literals;

constexpr const char* kKey = "k7x2mwq9zrtp@hnbc5s";

// What DecryptText gives, or "(refused)" when it refuses and leaves the result alone.
std::string Decrypted(const std::string& encrypted, const std::string& key = kKey) {
  std::string plain = "before";
  if (DecryptText(encrypted, key, plain)) return plain;
  return plain == "before" ? "(refused)" : "(refused, but changed the result)";
}

// Any text comes back; the value is printable, with a version prefix: a
// 24-byte nonce and a 16-byte tag around the 7 bytes of "Grüße" make 47
// bytes, 63 digits. Another key, an altered or cut text, and what is no
// encrypted value are refused.
TEST(StringCipher, RoundTripsPrintablyAndRefusesWhatItDidNotEncrypt) {
  std::string encrypted, again, other;
  for (const std::string& text : {"s3cret pass"s, ""s, "Grüße, 東京 ✓"s, "nul\0inside"s}) {
    ASSERT_TRUE(EncryptText(text, kKey, encrypted));
    EXPECT_EQ(text, Decrypted(encrypted)) << text;
  }
  ASSERT_TRUE(EncryptText("Grüße", kKey, encrypted) && EncryptText("Grüße", kKey, again));
  EXPECT_NE(encrypted, again);
  EXPECT_EQ("jx1:", encrypted.substr(0, 4));
  EXPECT_EQ(4u + 63u, encrypted.size());
  EXPECT_TRUE(std::all_of(encrypted.begin() + 4, encrypted.end(),
                          [](char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_'; }));
  ASSERT_TRUE(EncryptText("secret", "", other));  // an empty key is a key too
  std::string altered = encrypted;
  altered[20] = altered[20] == 'A' ? 'B' : 'A';
  const std::string body = encrypted.substr(4);
  const std::pair<std::string, std::string> refused[] = {
      {encrypted, "another key"}, {other, kKey}, {altered, kKey}, {encrypted.substr(0, 63), kKey},
      {encrypted + "AAAA", kKey}, {"plain text", kKey}, {"jx1:not base64!", kKey}, {"jx1:" + body + "=", kKey},
      {"jx2:" + body, kKey}, {body, kKey}, {"jx1:AAAA", kKey}};  // the last decodes, but is too short
  for (const auto& [text, key] : refused) EXPECT_EQ("(refused)", Decrypted(text, key)) << text;
}

}  // namespace
}  // namespace jx
