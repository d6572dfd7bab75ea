#include "host/stringcipher.h"

#include <gtest/gtest.h>

#include <cctype>

namespace jx {
namespace {

constexpr const char* kKey = "k7x2mwq9zrtp@hnbc5s";

std::string Encrypted(const std::string& plain, const std::string& key = kKey) {
  std::string encrypted;
  EXPECT_TRUE(EncryptText(plain, key, encrypted));
  return encrypted;
}

// What DecryptText gives, or "(refused)".
std::string Decrypted(const std::string& encrypted, const std::string& key = kKey) {
  std::string plain;
  return DecryptText(encrypted, key, plain) ? plain : "(refused)";
}

TEST(StringCipher, RoundTripsAnyText) {
  const std::string texts[] = {"s3cret pass", "", "Grüße, 東京 ✓", std::string("nul\0inside", 10)};
  for (const std::string& text : texts) EXPECT_EQ(text, Decrypted(Encrypted(text))) << text;
}

TEST(StringCipher, IsPrintableWithAVersionPrefix) {
  const std::string encrypted = Encrypted("Grüße");
  ASSERT_EQ("jx1:", encrypted.substr(0, 4));
  for (char c : encrypted.substr(4)) {
    EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c)) || c == '-' || c == '_') << encrypted;
  }
  // A 24-byte nonce and a 16-byte tag around the 7 bytes of UTF-8: 47 bytes, 63 digits.
  EXPECT_EQ(4u + 63u, encrypted.size());
}

TEST(StringCipher, TwoEncryptionsOfOneTextDiffer) {
  const std::string first = Encrypted("same"), second = Encrypted("same");
  EXPECT_NE(first, second);
  EXPECT_EQ("same", Decrypted(first));
  EXPECT_EQ("same", Decrypted(second));
}

TEST(StringCipher, OtherKeyIsRefused) {
  EXPECT_EQ("(refused)", Decrypted(Encrypted("secret"), "another key"));
  EXPECT_EQ("(refused)", Decrypted(Encrypted("secret", ""), kKey));
  EXPECT_EQ("secret", Decrypted(Encrypted("secret", ""), ""));
}

TEST(StringCipher, AlteredTextIsRefused) {
  const std::string encrypted = Encrypted("secret");
  for (size_t at : {size_t{4}, size_t{20}, encrypted.size() - 1}) {
    std::string altered = encrypted;
    altered[at] = altered[at] == 'A' ? 'B' : 'A';
    EXPECT_EQ("(refused)", Decrypted(altered)) << "digit " << at;
  }
  EXPECT_EQ("(refused)", Decrypted(encrypted.substr(0, encrypted.size() - 4)));
  EXPECT_EQ("(refused)", Decrypted(encrypted + "AAAA"));
}

TEST(StringCipher, TextThatIsNoEncryptedValueIsRefused) {
  const std::string body = Encrypted("secret").substr(4);
  const std::string texts[] = {
      "",  "plain text", "jx1:", "jx1:not base64!", "jx1:" + body + "=", "jx2:" + body, body,
      "jx1:AAAA",  // decodes, but shorter than a nonce and a tag
  };
  for (const std::string& text : texts) EXPECT_EQ("(refused)", Decrypted(text)) << text;
}

TEST(StringCipher, RefusalLeavesTheResultAlone) {
  std::string plain = "before";
  EXPECT_FALSE(DecryptText("jx1:AAAA", kKey, plain));
  EXPECT_EQ("before", plain);
}

}  // namespace
}  // namespace jx
