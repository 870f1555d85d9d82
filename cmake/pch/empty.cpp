// The source of the targets that precompile headers.
