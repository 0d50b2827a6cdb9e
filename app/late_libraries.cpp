// Libraries that only the updater needs are loaded when it first does, not with the program: they
// bring twenty others along, and every name that anything looks up while the program starts, a
// graphics driver above all, is looked up in each of them. The functions below stand for those of
// the same name in the libraries. Where a library is missing the check, or the update, fails as it
// does without a network, or with a damaged archive.

#define CURL_DISABLE_TYPECHECK
#include <archive.h>
#include <archive_entry.h>
#include <curl/curl.h>
#include <dlfcn.h>

#include <cstdarg>

#undef curl_easy_getinfo
#undef curl_easy_setopt

namespace {

void* curlLibrary() {
    static void* const library = dlopen("libcurl.so.4", RTLD_NOW | RTLD_LOCAL);
    return library;
}

void* archiveLibrary() {
    static void* const library = dlopen("libarchive.so.13", RTLD_NOW | RTLD_LOCAL);
    return library;
}

template<class Function>
Function* lookUp(void* library, const char* name) {
    return library != nullptr ? reinterpret_cast<Function*>(dlsym(library, name)) : nullptr;
}

/// What follows the named arguments is one word, whatever its type.
static_assert(sizeof(long) == sizeof(void*) && sizeof(curl_off_t) == sizeof(void*));

} // namespace

// `real` is the library's own function; null without the library.
#define LARKVOX_REAL(library, name)                                                                \
    static auto* const real = lookUp<decltype(name)>(library, #name) // NOLINT

// NOLINTBEGIN(cert-dcl50-cpp,cppcoreguidelines-pro-type-vararg)
extern "C" {

CURLcode curl_global_init(long flags) {
    LARKVOX_REAL(curlLibrary(), curl_global_init);
    return real != nullptr ? real(flags) : CURLE_FAILED_INIT;
}
CURL* curl_easy_init() {
    LARKVOX_REAL(curlLibrary(), curl_easy_init);
    return real != nullptr ? real() : nullptr;
}
void curl_easy_cleanup(CURL* handle) {
    LARKVOX_REAL(curlLibrary(), curl_easy_cleanup);
    if (real != nullptr) {
        real(handle);
    }
}
CURLcode curl_easy_setopt(CURL* handle, CURLoption option, ...) {
    LARKVOX_REAL(curlLibrary(), curl_easy_setopt);
    va_list rest;
    va_start(rest, option);
    void* const value = va_arg(rest, void*);
    va_end(rest);
    return real != nullptr ? real(handle, option, value) : CURLE_FAILED_INIT;
}
CURLcode curl_easy_getinfo(CURL* handle, CURLINFO info, ...) {
    LARKVOX_REAL(curlLibrary(), curl_easy_getinfo);
    va_list rest;
    va_start(rest, info);
    void* const value = va_arg(rest, void*);
    va_end(rest);
    return real != nullptr ? real(handle, info, value) : CURLE_FAILED_INIT;
}
CURLHcode curl_easy_header(CURL* handle, const char* name, size_t index, unsigned int origin,
                           int request, curl_header** header) {
    LARKVOX_REAL(curlLibrary(), curl_easy_header);
    return real != nullptr ? real(handle, name, index, origin, request, header) : CURLHE_MISSING;
}
curl_slist* curl_slist_append(curl_slist* list, const char* text) {
    LARKVOX_REAL(curlLibrary(), curl_slist_append);
    return real != nullptr ? real(list, text) : nullptr;
}
void curl_slist_free_all(curl_slist* list) {
    LARKVOX_REAL(curlLibrary(), curl_slist_free_all);
    if (real != nullptr) {
        real(list);
    }
}
CURLM* curl_multi_init() {
    LARKVOX_REAL(curlLibrary(), curl_multi_init);
    return real != nullptr ? real() : nullptr;
}
CURLMcode curl_multi_cleanup(CURLM* multi) {
    LARKVOX_REAL(curlLibrary(), curl_multi_cleanup);
    return real != nullptr ? real(multi) : CURLM_BAD_HANDLE;
}
CURLMcode curl_multi_wakeup(CURLM* multi) {
    LARKVOX_REAL(curlLibrary(), curl_multi_wakeup);
    return real != nullptr ? real(multi) : CURLM_BAD_HANDLE;
}
CURLMcode curl_multi_poll(CURLM* multi, curl_waitfd* descriptors, unsigned int count, int timeout,
                          int* ready) {
    LARKVOX_REAL(curlLibrary(), curl_multi_poll);
    return real != nullptr ? real(multi, descriptors, count, timeout, ready) : CURLM_BAD_HANDLE;
}
CURLMcode curl_multi_add_handle(CURLM* multi, CURL* handle) {
    LARKVOX_REAL(curlLibrary(), curl_multi_add_handle);
    return real != nullptr ? real(multi, handle) : CURLM_BAD_HANDLE;
}
CURLMcode curl_multi_remove_handle(CURLM* multi, CURL* handle) {
    LARKVOX_REAL(curlLibrary(), curl_multi_remove_handle);
    return real != nullptr ? real(multi, handle) : CURLM_BAD_HANDLE;
}
CURLMcode curl_multi_perform(CURLM* multi, int* running) {
    LARKVOX_REAL(curlLibrary(), curl_multi_perform);
    if (real != nullptr) {
        return real(multi, running);
    }
    *running = 0;
    return CURLM_BAD_HANDLE;
}
CURLMsg* curl_multi_info_read(CURLM* multi, int* left) {
    LARKVOX_REAL(curlLibrary(), curl_multi_info_read);
    static CURLMsg failure{CURLMSG_DONE, nullptr, {}};
    failure.data.result = CURLE_FAILED_INIT;
    return real != nullptr ? real(multi, left) : &failure;
}

struct archive* archive_read_new() {
    LARKVOX_REAL(archiveLibrary(), archive_read_new);
    return real != nullptr ? real() : nullptr;
}
int archive_read_free(struct archive* archive) {
    LARKVOX_REAL(archiveLibrary(), archive_read_free);
    return real != nullptr ? real(archive) : ARCHIVE_FATAL;
}
int archive_read_support_filter_xz(struct archive* archive) {
    LARKVOX_REAL(archiveLibrary(), archive_read_support_filter_xz);
    return real != nullptr ? real(archive) : ARCHIVE_FATAL;
}
int archive_read_support_format_tar(struct archive* archive) {
    LARKVOX_REAL(archiveLibrary(), archive_read_support_format_tar);
    return real != nullptr ? real(archive) : ARCHIVE_FATAL;
}
int archive_read_open_memory(struct archive* archive, const void* bytes, size_t size) {
    LARKVOX_REAL(archiveLibrary(), archive_read_open_memory);
    return real != nullptr ? real(archive, bytes, size) : ARCHIVE_FATAL;
}
int archive_read_next_header(struct archive* archive, struct archive_entry** entry) {
    LARKVOX_REAL(archiveLibrary(), archive_read_next_header);
    return real != nullptr ? real(archive, entry) : ARCHIVE_FATAL;
}
la_ssize_t archive_read_data(struct archive* archive, void* bytes, size_t size) {
    LARKVOX_REAL(archiveLibrary(), archive_read_data);
    return real != nullptr ? real(archive, bytes, size) : ARCHIVE_FATAL;
}
la_int64_t archive_filter_bytes(struct archive* archive, int filter) {
    LARKVOX_REAL(archiveLibrary(), archive_filter_bytes);
    return real != nullptr ? real(archive, filter) : -1;
}
const char* archive_error_string(struct archive* archive) {
    LARKVOX_REAL(archiveLibrary(), archive_error_string);
    return real != nullptr ? real(archive) : nullptr;
}
const char* archive_entry_pathname(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_pathname);
    return real != nullptr ? real(entry) : nullptr;
}
const char* archive_entry_symlink(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_symlink);
    return real != nullptr ? real(entry) : nullptr;
}
const char* archive_entry_hardlink(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_hardlink);
    return real != nullptr ? real(entry) : nullptr;
}
__LA_MODE_T archive_entry_filetype(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_filetype);
    return real != nullptr ? real(entry) : 0;
}
__LA_MODE_T archive_entry_perm(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_perm);
    return real != nullptr ? real(entry) : 0;
}
la_int64_t archive_entry_size(struct archive_entry* entry) {
    LARKVOX_REAL(archiveLibrary(), archive_entry_size);
    return real != nullptr ? real(entry) : 0;
}

} // extern "C"
// NOLINTEND(cert-dcl50-cpp,cppcoreguidelines-pro-type-vararg)
