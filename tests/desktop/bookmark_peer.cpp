// ZQSwiftUI, MIT licence; see LICENSE.
// The desktop's list of recently used documents, as programs on GLib have it:
//   bookmark_peer add FILE URI APPLICATION   registers a document, and makes the list if need be
//   bookmark_peer list FILE                  prints each document with its applications
#include <glib.h>

#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace {

int failed(GError* error) {
  std::fprintf(stderr, "bookmark_peer: %s\n", error->message);
  g_error_free(error);
  return EXIT_FAILURE;
}

int add(GBookmarkFile* list, const char* file, const char* uri, const char* application) {
  g_bookmark_file_set_title(list, uri, "Ä title & more");
  g_bookmark_file_set_mime_type(list, uri, "text/plain");
  g_bookmark_file_add_group(list, uri, "Office");
  g_bookmark_file_add_application(list, uri, application, "peer %u");
  GError* error = nullptr;
  return g_bookmark_file_to_file(list, file, &error) ? EXIT_SUCCESS : failed(error);
}

void print(GBookmarkFile* list) {
  gchar** uris = g_bookmark_file_get_uris(list, nullptr);
  for (gchar** uri = uris; *uri != nullptr; ++uri) {
    std::printf("%s", *uri);
    gchar** names = g_bookmark_file_get_applications(list, *uri, nullptr, nullptr);
    for (gchar** name = names; name != nullptr && *name != nullptr; ++name) {
      gchar* exec = nullptr;
      guint count = 0;
      g_bookmark_file_get_application_info(list, *uri, *name, &exec, &count, nullptr, nullptr);
      std::printf(" %s:%u", *name, count);
      g_free(exec);
    }
    std::printf("\n");
    g_strfreev(names);
  }
  g_strfreev(uris);
}

}  // namespace

int main(int argc, char** argv) {
  const std::string_view command = argc > 2 ? argv[1] : "";
  GBookmarkFile* list = g_bookmark_file_new();
  GError* error = nullptr;
  const bool there = argc > 2 && g_file_test(argv[2], G_FILE_TEST_EXISTS);
  int result = EXIT_FAILURE;
  if (there && !g_bookmark_file_load_from_file(list, argv[2], &error)) {
    result = failed(error);
  } else if (command == "add" && argc == 5) {
    result = add(list, argv[2], argv[3], argv[4]);
  } else if (command == "list") {
    print(list);
    result = EXIT_SUCCESS;
  }
  g_bookmark_file_free(list);
  return result;
}
