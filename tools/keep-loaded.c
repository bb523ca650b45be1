/* Loaded before the libraries of a program under the leak sanitizer: libraries that a program unloads before its end stay,
   so that the report can name the functions that lost memory in them. */
int dlclose(void* library)
{
    (void)library;
    return 0;
}
