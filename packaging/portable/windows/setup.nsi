; The setup program for Windows: for one user, without administrator's rights. packaging/portable/build defines
;   VERSION    of the product
;   FILES      the folder with all that is installed
;   REMOVAL    a script that removes exactly these files from $INSTDIR, and the folders that are empty then
;   LANGUAGES  the folder with Marathi.nlf and Marathi.nsh
;   ICON       of the setup program
;   SIDE       the picture at the side of its last window
;   SIZE       of the files together, in KB
;   OUTPUT     the setup program
Target amd64-unicode
SetCompressor /SOLID lzma
SetCompressorDictSize 64
ManifestDPIAware true
RequestExecutionLevel user
Name "Tolvan Basic"
OutFile "${OUTPUT}"
BrandingText "Tolvan Basic ${VERSION}"
InstallDir "$LOCALAPPDATA\Programs\Tolvan Basic"
!define UNINSTALL "Software\Microsoft\Windows\CurrentVersion\Uninstall\Tolvan Basic"
InstallDirRegKey HKCU "${UNINSTALL}" InstallLocation

!include MUI2.nsh
!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_WELCOMEFINISHPAGE_BITMAP "${SIDE}"
!define MUI_FINISHPAGE_RUN "$INSTDIR\tolbasic.exe"
!define MUI_LANGDLL_ALLLANGUAGES
!define MUI_LANGDLL_WINDOWTITLE "Tolvan Basic"
!define MUI_LANGDLL_INFO "भाषा · Language"
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_PAGE_FINISH
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGEEX "${LANGUAGES}" Marathi
!insertmacro MUI_LANGUAGE English
!insertmacro MUI_RESERVEFILE_LANGDLL
LangString Examples ${LANG_MARATHI} "उदाहरणे"
LangString Examples ${LANG_ENGLISH} "Examples"
LangString Remove ${LANG_MARATHI} "Tolvan Basic काढून टाक"
LangString Remove ${LANG_ENGLISH} "Uninstall Tolvan Basic"

; The file type. The system is told, so that icons change at once.
!define TYPE "TolvanBasic.Program"
!macro TellOfFileTypes
  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'
!macroend

Function .onInit
  !insertmacro MUI_LANGDLL_DISPLAY
FunctionEnd

Section
  SetOutPath "$INSTDIR"
  SetOverwrite on
  File /r "${FILES}/*"
  WriteUninstaller "$INSTDIR\uninstall.exe"

  ; Of both languages, since setup may run again in the other one.
  RMDir /r "$SMPROGRAMS\Tolvan Basic"
  CreateDirectory "$SMPROGRAMS\Tolvan Basic"
  CreateShortcut "$SMPROGRAMS\Tolvan Basic\Tolvan Basic.lnk" "$INSTDIR\tolbasic.exe"
  CreateShortcut "$SMPROGRAMS\Tolvan Basic\$(Examples).lnk" "$INSTDIR\examples"
  CreateShortcut "$SMPROGRAMS\Tolvan Basic\$(Remove).lnk" "$INSTDIR\uninstall.exe"

  WriteRegStr HKCU "Software\Classes\.tvp" "" "${TYPE}"
  WriteRegStr HKCU "Software\Classes\${TYPE}" "" "Tolvan Basic"
  WriteRegStr HKCU "Software\Classes\${TYPE}\DefaultIcon" "" "$INSTDIR\tolbasic.exe,0"
  WriteRegStr HKCU "Software\Classes\${TYPE}\shell\open\command" "" '"$INSTDIR\tolbasic.exe" "%1"'
  !insertmacro TellOfFileTypes

  WriteRegStr HKCU "${UNINSTALL}" DisplayName "Tolvan Basic"
  WriteRegStr HKCU "${UNINSTALL}" DisplayVersion "${VERSION}"
  WriteRegStr HKCU "${UNINSTALL}" DisplayIcon "$INSTDIR\tolbasic.exe"
  WriteRegStr HKCU "${UNINSTALL}" Publisher "Tolvan Basic"
  WriteRegStr HKCU "${UNINSTALL}" InstallLocation "$INSTDIR"
  WriteRegStr HKCU "${UNINSTALL}" UninstallString '"$INSTDIR\uninstall.exe"'
  WriteRegStr HKCU "${UNINSTALL}" QuietUninstallString '"$INSTDIR\uninstall.exe" /S'
  WriteRegDWORD HKCU "${UNINSTALL}" EstimatedSize ${SIZE}
  WriteRegDWORD HKCU "${UNINSTALL}" NoModify 1
  WriteRegDWORD HKCU "${UNINSTALL}" NoRepair 1
  WriteRegStr HKCU "${UNINSTALL}" Language $LANGUAGE
SectionEnd

Function un.onInit
  ReadRegStr $LANGUAGE HKCU "${UNINSTALL}" Language
FunctionEnd

; Programs and settings of the user stay, also those that lie in the folder of the installation.
Section Uninstall
  !include "${REMOVAL}"
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  RMDir /r "$SMPROGRAMS\Tolvan Basic"
  ReadRegStr $0 HKCU "Software\Classes\.tvp" ""
  StrCmp $0 "${TYPE}" 0 +2
    DeleteRegKey HKCU "Software\Classes\.tvp"
  DeleteRegKey HKCU "Software\Classes\${TYPE}"
  DeleteRegKey HKCU "${UNINSTALL}"
  !insertmacro TellOfFileTypes
SectionEnd
