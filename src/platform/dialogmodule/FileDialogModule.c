/* The desktop's file dialogs behind C functions. This module is loaded into the program when the first dialog is
   shown and stays loaded. */

#include <gtk/gtk.h>
#include <locale.h>
#include <stdbool.h>
#include <stdlib.h>
#include <string.h>

#define EXPORTED __attribute__((visibility("default")))

enum { RESULT_ERROR = 0, RESULT_CHOSEN = 1, RESULT_CANCELLED = 2 };

static gboolean Start(void) {
  static gboolean isStarted = FALSE;
  if (isStarted)
    return TRUE;
  /* The program writes and reads numbers in the C locale; only texts and characters may follow the user's. */
  gtk_disable_setlocale();
  setlocale(LC_MESSAGES, "");
  setlocale(LC_CTYPE, "");
  isStarted = gtk_init_check(NULL, NULL);
  return isStarted;
}

/* What the program wants to be done while a dialog is open, or null. False ends the dialog as if it were cancelled. */
static bool (*while_open)(void) = NULL;
enum { TURN_MILLISECONDS = 15 };

static gboolean Turn(gpointer dialog) {
  if (!while_open())
    gtk_native_dialog_hide(GTK_NATIVE_DIALOG(dialog));
  return G_SOURCE_CONTINUE;
}

/* The dialog starts in the directory of the file, and one that saves with its name. */
static void StartAt(GtkFileChooser* chooser, GtkFileChooserAction action, const char* path) {
  char* absolute = g_canonicalize_filename(path, NULL);
  char* directory = g_path_get_dirname(absolute);
  gtk_file_chooser_set_current_folder(chooser, directory);
  g_free(directory);
  if (action == GTK_FILE_CHOOSER_ACTION_SAVE) {
    char* name = g_path_get_basename(absolute);
    char* shown = g_filename_display_name(name);
    gtk_file_chooser_set_current_name(chooser, shown);
    g_free(shown);
    g_free(name);
  }
  g_free(absolute);
}

/* A pattern for one extension that takes both cases of each letter: "*.[jJ][sS]". */
static char* PatternFor(const char* extension) {
  GString* pattern = g_string_new("*.");
  for (const char* c = extension; *c; ++c) {
    if (g_ascii_isalpha(*c))
      g_string_append_printf(pattern, "[%c%c]", g_ascii_tolower(*c), g_ascii_toupper(*c));
    else
      g_string_append_c(pattern, *c);
  }
  return g_string_free(pattern, FALSE);
}

static void AddFilters(GtkFileChooser* chooser, const char* filterList) {
  if (!filterList || !*filterList)
    return;
  char** choices = g_strsplit(filterList, ";", -1);
  for (char** choice = choices; *choice; ++choice) {
    GtkFileFilter* filter = gtk_file_filter_new();
    GString* name = g_string_new(NULL);
    char** extensions = g_strsplit(*choice, ",", -1);
    for (char** extension = extensions; *extension; ++extension) {
      g_strstrip(*extension);
      if (!**extension)
        continue;
      char* pattern = PatternFor(*extension);
      gtk_file_filter_add_pattern(filter, pattern);
      g_free(pattern);
      g_string_append_printf(name, "%s.%s", name->len ? ", " : "", *extension);
    }
    g_strfreev(extensions);
    if (name->len) {
      gtk_file_filter_set_name(filter, name->str);
      gtk_file_chooser_add_filter(chooser, filter);
    } else {
      g_object_ref_sink(filter);
      g_object_unref(filter);
    }
    g_string_free(name, TRUE);
  }
  g_strfreev(choices);

  GtkFileFilter* all = gtk_file_filter_new();
  gtk_file_filter_set_name(all, "*.*");
  gtk_file_filter_add_pattern(all, "*");
  gtk_file_chooser_add_filter(chooser, all);
}

static int RunDialog(GtkFileChooserAction action, const char* title, const char* filterList, const char* defaultPath,
                     char** outPath) {
  if (!outPath)
    return RESULT_ERROR;
  *outPath = NULL;
  if (!Start())
    return RESULT_ERROR;

  GtkFileChooserNative* dialog = gtk_file_chooser_native_new(title, NULL, action, NULL, NULL);
  GtkFileChooser* chooser = GTK_FILE_CHOOSER(dialog);
  gtk_native_dialog_set_modal(GTK_NATIVE_DIALOG(dialog), TRUE);
  gtk_file_chooser_set_local_only(chooser, TRUE);
  if (action == GTK_FILE_CHOOSER_ACTION_SAVE)
    gtk_file_chooser_set_do_overwrite_confirmation(chooser, TRUE);
  if (defaultPath && *defaultPath)
    StartAt(chooser, action, defaultPath);
  AddFilters(chooser, filterList);

  guint timer = while_open ? g_timeout_add(TURN_MILLISECONDS, Turn, dialog) : 0;
  int result = RESULT_CANCELLED;
  if (gtk_native_dialog_run(GTK_NATIVE_DIALOG(dialog)) == GTK_RESPONSE_ACCEPT) {
    char* chosen = gtk_file_chooser_get_filename(chooser);
    /* The caller frees the path with the C library's function, which need not be GLib's. */
    if (chosen)
      *outPath = strdup(chosen);
    g_free(chosen);
    result = *outPath ? RESULT_CHOSEN : RESULT_ERROR;
  }
  if (timer)
    g_source_remove(timer);
  g_object_unref(dialog);
  /* Nothing else turns this event loop, so the dialog's window would stay on the screen. */
  while (gtk_events_pending())
    gtk_main_iteration();
  return result;
}

EXPORTED void NFD_SetWhileOpen(bool (*turn)(void)) { while_open = turn; }

EXPORTED int NFD_OpenDialog(const char* filterList, const char* defaultPath, char** outPath) {
  return RunDialog(GTK_FILE_CHOOSER_ACTION_OPEN, "Open File", filterList, defaultPath, outPath);
}

EXPORTED int NFD_SaveDialog(const char* filterList, const char* defaultPath, char** outPath) {
  return RunDialog(GTK_FILE_CHOOSER_ACTION_SAVE, "Save File", filterList, defaultPath, outPath);
}
