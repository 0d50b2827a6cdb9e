#pragma once

/// For thread-local variables that an audio thread touches. In a library that a host loads while it
/// runs, the usual model allocates on each thread's first access; this one has the loader set
/// memory aside, of which it keeps little: for a few pointers and numbers only.
#if defined(__ELF__)
#define LARKVOX_AUDIO_THREAD_LOCAL [[gnu::tls_model("initial-exec")]] thread_local
#else
#define LARKVOX_AUDIO_THREAD_LOCAL thread_local
#endif
