# The sources of this folder.
target_sources(HalvexHostViewer PRIVATE
  ${CMAKE_CURRENT_LIST_DIR}/CRecordBar.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CRecordBar.h
  ${CMAKE_CURRENT_LIST_DIR}/CRecorder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/CRecorder.h
  ${CMAKE_CURRENT_LIST_DIR}/RawFrame.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RawFrame.h
  ${CMAKE_CURRENT_LIST_DIR}/RecordFolder.cpp
  ${CMAKE_CURRENT_LIST_DIR}/RecordFolder.h)
