' The shortest call: it needs no terminal.
WScript.Echo CreateObject("VantroProfileUtils.CPDMDTrans").CreateCommand()
