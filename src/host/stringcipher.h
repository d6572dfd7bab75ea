// The host's string encryption: libsodium's secretbox (XSalsa20 with a
// Poly1305 tag) under a key derived from a key text, written as printable text.
#pragma once

#include <string>

namespace jx {

// `encrypted` becomes "jx1:" and the URL-safe, unpadded base64 of a random
// nonce followed by the sealed text, so two encryptions of one text differ.
// Returns false only when the library cannot start.
bool EncryptText(const std::string& plain, const std::string& key, std::string& encrypted);

// Returns false, leaving `plain` as it was, for a text that EncryptText did
// not make under `key`: no prefix, bad base64, too short, other key, altered.
bool DecryptText(const std::string& encrypted, const std::string& key, std::string& plain);

}  // namespace jx
