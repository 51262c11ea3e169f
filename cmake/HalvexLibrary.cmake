# libHalvex.so: the plugin that a host loads and the library that other plugins link against, in one file.

include(CMakePackageConfigHelpers)
include(GenerateExportHeader)

add_library(Halvex SHARED)
add_library(Halvex::Halvex ALIAS Halvex)
set_target_properties(Halvex PROPERTIES
  VERSION ${PROJECT_VERSION}
  SOVERSION ${PROJECT_VERSION_MAJOR}
  LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/plugins") # where a host in the build tree looks for plugins
halvex_target(Halvex)

set(HALVEX_PUBLIC_HEADERS
  graph/CNodeBase.h
  graph/CNodeConnection.h
  graph/CNodeData.h
  graph/CNodeDataModel.h
  graph/CNodeState.h
  graph/DocumentKeys.h
  graph/ENodePortType.h
  graph/NodeDataConverter.h
  graph/NodePortIndex.h
  graph/SNodeDataType.h
  models/ANodeDataModel.h
  models/ASinkNodeDataModel.h
  models/ASourceNodeDataModel.h
  models/AWorkerNodeDataModel.h
  models/CDecoupler.h
  models/CGenericNodeDecouplerDataModel.h
  models/CNodeDataEntry.h
  models/CNodeDataFlowProxy.h
  models/CNodeDecouplerDataModelBase.h
  models/ENodeDataModelType.h
  models/SDecouplerStatistics.h
  models/SWorkerStatistics.h
  scene/CNodeDataModelRegistry.h
  scene/CNodeScene.h
  service/CHalvexPlugin.h
  service/CNodeService.h
  service/CVeltraGrabResultData.h
  service/INodeService.h)
halvex_forward(${HALVEX_PUBLIC_HEADERS})
set(HALVEX_PLATFORM_HEADERS
  platform/ALocalizedPlugin.h
  platform/CGrabResultPtr.h
  platform/CId.h
  platform/IBaseInfo.h
  platform/IPlugin.h
  platform/ISerializable.h
  platform/IService.h
  platform/IServiceManager.h)

target_sources(Halvex PRIVATE
  ${HALVEX_PUBLIC_HEADERS}
  graph/CConversion_p.h
  graph/support/CDeferredQueue.cpp
  graph/support/CDeferredQueue_p.h
  graph/support/CMetaTypeRegistration_p.h
  graph/CNodeBase.cpp
  graph/CNodeConnection.cpp
  graph/CNodeData.cpp
  graph/CNodeDataModel.cpp
  graph/CNodeState.cpp
  graph/CNodeVisit_p.h
  graph/CNodeWalk.cpp
  graph/CStackGauge.cpp
  graph/CStackGauge_p.h
  graph/PortSides_p.h
  graph/support/JsonObject_p.h
  graph/support/JsonText.cpp
  graph/support/JsonText_p.h
  graph/support/Reports.cpp
  graph/support/Reports_p.h
  models/ANodeDataModel.cpp
  models/ASinkNodeDataModel.cpp
  models/ASourceNodeDataModel.cpp
  models/AWorkerNodeDataModel.cpp
  models/CDecoupler.cpp
  models/DecouplerEnd_p.h
  models/CNodeDataEntry.cpp
  models/CNodeDataFlowProxy.cpp
  models/CNodeDecouplerDataModelBase.cpp
  models/CInputGatherer_p.h
  models/CWorkQueue.cpp
  models/CWorkQueue_p.h
  models/RemovedWork.cpp
  models/RemovedWork_p.h
  scene/CNodeDataModelRegistry.cpp
  scene/CNodeScene.cpp
  scene/CNodeSceneDocument.cpp
  service/CHalvexPlugin.cpp
  service/CNodeService.cpp
  service/CSceneImport.cpp
  service/CSceneImport_p.h
  service/CVeltraGrabResultData.cpp
  service/TypesOfSignals.cpp)

# The umbrella header is made from the same list that is installed, so that it misses no class.
set(HALVEX_INCLUDES "")
foreach(header IN LISTS HALVEX_PLATFORM_HEADERS HALVEX_PUBLIC_HEADERS)
  string(APPEND HALVEX_INCLUDES "#include <Halvex/${header}>\n")
endforeach()
configure_file(cmake/Halvex.h.in "${HALVEX_GENERATED_DIR}/Halvex/Halvex.h" @ONLY)
# The checked containers of g++'s library have other sizes: whoever is compiled with them would read garbage of ours.
string(REGEX MATCH "-D *_GLIBCXX_DEBUG($|[ =])" is_checked "${CMAKE_CXX_FLAGS} ${CMAKE_CXX_FLAGS_${CMAKE_BUILD_TYPE}}")
if(NOT is_checked)
  set(check_of_containers "
#ifdef _GLIBCXX_DEBUG
#error \"Halvex was built without _GLIBCXX_DEBUG: build it with that too, or what uses it without\"
#endif
")
endif()
generate_export_header(Halvex
  EXPORT_FILE_NAME "${HALVEX_GENERATED_DIR}/Halvex/HalvexExport.h"
  CUSTOM_CONTENT_FROM_VARIABLE check_of_containers)

# What hosts use that load the plugin and do not link it: all but the library itself. The platform comes first, so that a
# build folder that has held our stand-in may change to another.
add_library(HalvexInterface INTERFACE)
add_library(Halvex::Interface ALIAS HalvexInterface)
set_target_properties(HalvexInterface PROPERTIES EXPORT_NAME Interface)
target_include_directories(HalvexInterface INTERFACE
  "$<BUILD_INTERFACE:$<TARGET_PROPERTY:HalvexPlatform,INTERFACE_INCLUDE_DIRECTORIES>>"
  "$<BUILD_INTERFACE:${HALVEX_GENERATED_DIR}>"
  "$<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>")
target_compile_features(HalvexInterface INTERFACE cxx_std_17)
target_link_libraries(HalvexInterface INTERFACE ${HALVEX_QT}::Core HalvexPlatform)

target_include_directories(Halvex PRIVATE "${PROJECT_SOURCE_DIR}") # "graph/name_p.h": private headers
target_link_libraries(Halvex PUBLIC HalvexInterface)
include(HalvexPlugin)
include(HalvexAddPlugin)

set(HALVEX_CMAKE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/Halvex")
# Where installed programs find the library, so that the prefix can be moved.
file(RELATIVE_PATH HALVEX_LIB_FROM_BIN "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
