# The sources of this folder.
target_sources(HalvexHostViewer PRIVATE)
