#include "host/stringcipher.h"

#include <sodium.h>

#include <cstring>
#include <string_view>
#include <utility>
#include <vector>

namespace jx {

namespace {

// Names the format, so that a later one can be told apart.
constexpr std::string_view kPrefix = "jx1:";
// No '/', '+' or '=': the text can stand in a file name, a command line or
// an INI value as it is.
constexpr int kBase64Variant = sodium_base64_VARIANT_URLSAFE_NO_PADDING;
constexpr size_t kNonceSize = crypto_secretbox_NONCEBYTES;
constexpr size_t kTagSize = crypto_secretbox_MACBYTES;

bool SodiumReady() {
  static const bool ready = sodium_init() >= 0;
  return ready;
}

// The key texts are fixed texts that actions carry, not passwords that a user
// picks, so a slow password hash (crypto_pwhash) would only add time to every
// call: a plain BLAKE2b hash (crypto_generichash) of the text gives the key.
class SecretKey {
 public:
  explicit SecretKey(const std::string& text) {
    crypto_generichash(bytes_, sizeof bytes_, reinterpret_cast<const unsigned char*>(text.data()), text.size(),
                       nullptr, 0);
  }
  ~SecretKey() { sodium_memzero(bytes_, sizeof bytes_); }
  SecretKey(const SecretKey&) = delete;
  SecretKey& operator=(const SecretKey&) = delete;

  const unsigned char* Bytes() const { return bytes_; }

 private:
  unsigned char bytes_[crypto_secretbox_KEYBYTES];
};

std::string ToBase64(const std::vector<unsigned char>& bytes) {
  std::string text(sodium_base64_encoded_len(bytes.size(), kBase64Variant), '\0');
  sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(), kBase64Variant);
  text.resize(std::strlen(text.c_str()));
  return text;
}

// Fails unless all of `text` is canonical base64 of the variant.
bool FromBase64(std::string_view text, std::vector<unsigned char>& bytes) {
  bytes.resize(text.size() * 3 / 4 + 1);
  size_t length = 0;
  if (sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &length, nullptr,
                        kBase64Variant) != 0) {
    return false;
  }
  bytes.resize(length);
  return true;
}

const unsigned char* Bytes(const std::string& text) { return reinterpret_cast<const unsigned char*>(text.data()); }

}  // namespace

bool EncryptText(const std::string& plain, const std::string& key, std::string& encrypted) {
  if (!SodiumReady()) return false;
  std::vector<unsigned char> box(kNonceSize + kTagSize + plain.size());
  unsigned char* nonce = box.data();
  randombytes_buf(nonce, kNonceSize);
  crypto_secretbox_easy(nonce + kNonceSize, Bytes(plain), plain.size(), nonce, SecretKey(key).Bytes());
  encrypted = std::string(kPrefix) + ToBase64(box);
  return true;
}

bool DecryptText(const std::string& encrypted, const std::string& key, std::string& plain) {
  const std::string_view text(encrypted);
  if (!SodiumReady() || !text.starts_with(kPrefix)) return false;
  std::vector<unsigned char> box;
  if (!FromBase64(text.substr(kPrefix.size()), box) || box.size() < kNonceSize + kTagSize) return false;
  const unsigned char* nonce = box.data();
  std::string opened(box.size() - kNonceSize - kTagSize, '\0');
  if (crypto_secretbox_open_easy(reinterpret_cast<unsigned char*>(opened.data()), nonce + kNonceSize,
                                 box.size() - kNonceSize, nonce, SecretKey(key).Bytes()) != 0) {
    return false;
  }
  plain = std::move(opened);
  return true;
}

}  // namespace jx
