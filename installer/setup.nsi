; The installer of the Windows component. Built by scripts/package-windows:
;   makensis -DSTAGE=folder -DFILES=list.nsh -DVERSION=1.0.0 -DOUT=ChartProject-setup.exe setup.nsi
; The list (installer/list_files) has a macro each for the files to install and to take away again.
;
; Quiet: ChartProject-setup /S [/AllUsers | /CurrentUser] [/D=folder]; exit code 0, or 2 when something failed.
Unicode true
SetCompressor /SOLID lzma
SetDateSave off
Name "ChartProject"
OutFile "${OUT}"
BrandingText " "

!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\ChartProject"
!define MULTIUSER_MUI
!define MULTIUSER_EXECUTIONLEVEL Highest
!define MULTIUSER_INSTALLMODE_COMMANDLINE
!define MULTIUSER_INSTALLMODE_INSTDIR "ChartProject"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_INSTDIR_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_KEY "${UNINSTALL_KEY}"
!define MULTIUSER_INSTALLMODE_DEFAULT_REGISTRY_VALUENAME "InstallLocation"
!define MULTIUSER_INSTALLMODE_FUNCTION ModeChosen
!include MultiUser.nsh
!include MUI2.nsh
!include "${FILES}"

!define MUI_ICON "${STAGE}.ico"
!define MUI_UNICON "${STAGE}.ico"
!define MUI_ABORTWARNING
!define MUI_COMPONENTSPAGE_SMALLDESC ; room for the longer names
!define MULTIUSER_INSTALLMODEPAGE_TEXT_TOP "$(UsersText)"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_ALLUSERS "$(UsersAll)"
!define MULTIUSER_INSTALLMODEPAGE_TEXT_CURRENTUSER "$(UsersOne)"
!insertmacro MUI_PAGE_LICENSE "${STAGE}\LICENSE"
!insertmacro MULTIUSER_PAGE_INSTALLMODE
!insertmacro MUI_PAGE_COMPONENTS
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"
!insertmacro MUI_LANGUAGE "PortugueseBR"
!insertmacro MUI_LANGUAGE "Spanish"

VIProductVersion "${VERSION}.0"
!macro Version LANGUAGE TITLE
  VIAddVersionKey /LANG=${LANGUAGE} "ProductName" "ChartProject"
  VIAddVersionKey /LANG=${LANGUAGE} "FileDescription" "${TITLE}"
  VIAddVersionKey /LANG=${LANGUAGE} "FileVersion" "${VERSION}"
  VIAddVersionKey /LANG=${LANGUAGE} "LegalCopyright" ""
!macroend
!insertmacro Version ${LANG_ENGLISH} "Set-up of ChartProject"
!insertmacro Version ${LANG_PORTUGUESEBR} "Instalação do ChartProject"
!insertmacro Version ${LANG_SPANISH} "Instalación de ChartProject"

!macro Words NAME ENGLISH PORTUGUESE SPANISH
  LangString ${NAME} ${LANG_ENGLISH} "${ENGLISH}"
  LangString ${NAME} ${LANG_PORTUGUESEBR} "${PORTUGUESE}"
  LangString ${NAME} ${LANG_SPANISH} "${SPANISH}"
!macroend
!insertmacro Words UsersText "ChartProject is installed for all users, which takes an administrator, or for you alone." \
  "O ChartProject é instalado para todos os usuários, o que exige um administrador, ou só para você." \
  "ChartProject se instala para todos los usuarios, lo que requiere un administrador, o solo para usted."
!insertmacro Words UsersAll "All users of this computer" "Todos os usuários deste computador" \
  "Todos los usuarios de este equipo"
!insertmacro Words UsersOne "Only me" "Só para mim" "Solo para mí"
!insertmacro Words ComponentName "Component" "Componente" "Componente"
!insertmacro Words LinkName "Simulated drives" "Drives simulados" "Drives simulados"
!insertmacro Words SampleName "Sample project" "Projeto de exemplo" "Proyecto de ejemplo"
!insertmacro Words MenuName "Start menu entries" "Entradas do menu Iniciar" "Entradas del menú Inicio"
!insertmacro Words ComponentTip "ChartProject.dll, registered for hosts of 32 and 64 bits, and the help pages." \
  "ChartProject.dll, registrada para hosts de 32 e 64 bits, e as páginas de ajuda." \
  "ChartProject.dll, registrada para hosts de 32 y 64 bits, y las páginas de ayuda."
!insertmacro Words LinkTip "A drive link without drives, to try the component. A link that the site has entered stays." \
  "Um link de drives sem drives, para experimentar o componente. Um link que foi configurado permanece." \
  "Un enlace de drives sin drives, para probar el componente. Un enlace configurado permanece."
!insertmacro Words SampleTip "A project with simulated drives and a recording." \
  "Um projeto com drives simulados e um registro." "Un proyecto con drives simulados y un registro."
!insertmacro Words MenuTip "Sample chart, help and uninstallation." \
  "Gráfico de exemplo, ajuda e desinstalação." "Gráfico de ejemplo, ayuda y desinstalación."
!insertmacro Words SampleLink "Sample chart" "Gráfico de exemplo" "Gráfico de ejemplo"
!insertmacro Words HelpLink "Help" "Ajuda" "Ayuda"
!insertmacro Words HelpPage "en.html" "pt.html" "es.html"
!insertmacro Words RemoveLink "Uninstall" "Desinstalar" "Desinstalar"
!insertmacro Words NotRegistered "$0 could not be registered (code $1)." \
  "$0 não pôde ser registrada (código $1)." "$0 no se pudo registrar (código $1)."
!insertmacro Words NotWritten "$0 cannot be written. Close the programs that use it." \
  "$0 não pode ser gravada. Feche os programas que a usam." "$0 no se puede grabar. Cierre los programas que la usan."

; Into $2 how the DLLs are registered: for all users, or for the calling user only.
!macro ChooseScope
  StrCpy $2 "/n /i:machine"
  ${If} $MultiUser.InstallMode == "CurrentUser"
    StrCpy $2 "/n /i:user"
  ${EndIf}
!macroend

!macro Failed TEXT
  DetailPrint "${TEXT}"
  SetErrorLevel 2
  MessageBox MB_OK|MB_ICONSTOP "${TEXT}" /SD IDOK
  Abort "${TEXT}"
!macroend

; A DLL that a host has loaded can be renamed, not overwritten: the old one goes when the system starts next.
!macro InstallServer NAME
  StrCpy $0 "${NAME}.dll"
  SetOutPath "$INSTDIR"
  Delete "$INSTDIR\$0.old"
  ${If} ${FileExists} "$INSTDIR\$0"
    Delete "$INSTDIR\$0"
    ${If} ${FileExists} "$INSTDIR\$0"
      Rename "$INSTDIR\$0" "$INSTDIR\$0.old"
      Delete /REBOOTOK "$INSTDIR\$0.old"
    ${EndIf}
  ${EndIf}
  ClearErrors
  SetOverwrite try
  File "${STAGE}\${NAME}.dll"
  SetOverwrite on
  ${If} ${Errors}
    !insertmacro Failed "$(NotWritten)"
  ${EndIf}
  !insertmacro ChooseScope
  ExecWait '"$SYSDIR\regsvr32.exe" /s $2 "$INSTDIR\$0"' $1
  ${If} $1 <> 0
    !insertmacro Failed "$(NotRegistered)"
  ${EndIf}
!macroend

!macro RemoveServer NAME
  ${If} ${FileExists} "$INSTDIR\${NAME}.dll"
    !insertmacro ChooseScope
    ExecWait '"$SYSDIR\regsvr32.exe" /s /u $2 "$INSTDIR\${NAME}.dll"' $1
    Delete /REBOOTOK "$INSTDIR\${NAME}.dll"
  ${EndIf}
!macroend

; An installation that is there keeps its folder; else a user's own programs have theirs.
Function ModeChosen
  ReadRegStr $0 SHCTX "${UNINSTALL_KEY}" "InstallLocation"
  ${If} $0 == ""
  ${AndIf} $MultiUser.InstallMode == "CurrentUser"
  ${AndIf} $INSTDIR == "$LOCALAPPDATA\ChartProject"
    StrCpy $INSTDIR "$LOCALAPPDATA\Programs\ChartProject"
  ${EndIf}
FunctionEnd

Function .onInit
  !insertmacro MULTIUSER_INIT
FunctionEnd

Function un.onInit
  !insertmacro MULTIUSER_UNINIT
FunctionEnd

Section "$(ComponentName)" SectionComponent
  SectionIn RO
  !insertmacro InstallServer ChartProject
  !insertmacro InstallProgramFiles
  WriteUninstaller "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayName" "ChartProject"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\uninstall.exe"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe" /$MultiUser.InstallMode'
  WriteRegStr SHCTX "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S /$MultiUser.InstallMode'
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoModify" 1
  WriteRegDWORD SHCTX "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "$(LinkName)" SectionLink
  !insertmacro InstallServer DriveLinkSim
SectionEnd

Section "$(SampleName)" SectionSample
  !insertmacro InstallSampleFiles
SectionEnd

Section "$(MenuName)" SectionMenu
  SetOutPath "$INSTDIR"
  CreateDirectory "$SMPROGRAMS\ChartProject"
  ${If} ${FileExists} "$INSTDIR\sample.vbs"
    CreateShortcut "$SMPROGRAMS\ChartProject\$(SampleLink).lnk" "$SYSDIR\wscript.exe" '"$INSTDIR\sample.vbs"'
  ${EndIf}
  CreateShortcut "$SMPROGRAMS\ChartProject\$(HelpLink).lnk" "$INSTDIR\help\$(HelpPage)"
  CreateShortcut "$SMPROGRAMS\ChartProject\$(RemoveLink).lnk" "$INSTDIR\uninstall.exe" "/$MultiUser.InstallMode"
SectionEnd

!insertmacro MUI_FUNCTION_DESCRIPTION_BEGIN
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionComponent} "$(ComponentTip)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionLink} "$(LinkTip)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionSample} "$(SampleTip)"
  !insertmacro MUI_DESCRIPTION_TEXT ${SectionMenu} "$(MenuTip)"
!insertmacro MUI_FUNCTION_DESCRIPTION_END

; What is not ours stays, in its folder: recordings that were made in the sample, for one.
Section "Uninstall"
  ${If} ${FileExists} "$INSTDIR\sample\settings_before.txt"
    ExecWait '"$SYSDIR\cscript.exe" //B //nologo "$INSTDIR\sample.vbs" restore'
  ${EndIf}
  !insertmacro RemoveServer ChartProject
  !insertmacro RemoveServer DriveLinkSim
  !insertmacro RemoveInstalledFiles
  Delete "$INSTDIR\uninstall.exe"
  RMDir "$INSTDIR"
  Delete "$SMPROGRAMS\ChartProject\*.lnk"
  RMDir "$SMPROGRAMS\ChartProject"
  DeleteRegKey SHCTX "${UNINSTALL_KEY}"
SectionEnd
