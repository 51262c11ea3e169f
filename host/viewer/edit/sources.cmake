# The sources of this folder.
target_sources(HalvexHostViewer PRIVATE
  edit/CFaultModel.cpp
  edit/CFaultModel.h
  edit/CFaultPanel.cpp
  edit/CFaultPanel.h
  edit/CGraphEditor.cpp
  edit/CGraphEditor.h
  edit/CGraphEditorCopies.cpp
  edit/CModelPalette.cpp
  edit/CModelPalette.h
  edit/CModelTree.cpp
  edit/CModelTree.h
  edit/CMoveStep.cpp
  edit/CMoveStep.h
  edit/CSettingField.cpp
  edit/CSettingField.h
  edit/CSettingsPanel.cpp
  edit/CSettingsPanel.h
  edit/CSettingStep.cpp
  edit/CSettingStep.h
  edit/CStructureStep.cpp
  edit/CStructureStep.h
  edit/GraphPart.cpp
  edit/GraphPart.h
  edit/PortFit.cpp
  edit/PortFit.h
  edit/SPort.h)
