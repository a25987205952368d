/*
 * The command shell's line reader, for the test programs of a library built
 * without GNU readline (which takes the shell's): prints the prompt, reads
 * one line from standard input and shows it as a reader on a dumb terminal
 * does.
 */
#define _POSIX_C_SOURCE 200809L
#include <stdio.h>
#include <stdlib.h>
#include <sys/types.h>

char *readline(const char *prompt);

char *readline(const char *prompt) {
    char *line = NULL;
    size_t room = 0;
    ssize_t length = 0;
    if (prompt != NULL) {
        fputs(prompt, stdout);
    }
    fflush(stdout);
    length = getline(&line, &room, stdin);
    if (length < 0) {
        free(line);
        return NULL;
    }
    if (length > 0 && line[length - 1] == '\n') {
        line[length - 1] = '\0';
    }
    printf("%s\n", line);
    fflush(stdout);
    return line;
}
