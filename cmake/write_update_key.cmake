# Writes a header with a public key: OUTPUT, and KEY or KEY_FILE.
if(KEY_FILE)
  file(STRINGS "${KEY_FILE}" KEY LIMIT_COUNT 1)
endif()
if(NOT KEY MATCHES "^[A-Za-z0-9+/=]*$")
  message(FATAL_ERROR "not a key in base64: ${KEY}")
endif()
file(WRITE "${OUTPUT}" "#pragma once\n\ninline constexpr const char* updatePublicKey = \"${KEY}\";\n")
