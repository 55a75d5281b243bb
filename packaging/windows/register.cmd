@echo off
rem Tells lamcraft where it is installed, so that it finds its message catalogues from every folder.
rem Run it once as an administrator, from the folder to which the archive was unpacked.
reg add "HKLM\SOFTWARE\Tarvelle\Corvan QTR\2023" /v InstallLocation /t REG_SZ /d "%~dp0\" /f /reg:64
