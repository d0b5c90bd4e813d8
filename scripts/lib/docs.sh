# The API reference, in which everything public is explained: a warning is a failure.

buildDocs() {
  (cd "$root" && rm -rf build/docs && mkdir -p build/docs && doxygen docs/Doxyfile >&2)
}
