' Where errors are survived, a loop or Select whose first line fails is left out, and its variable stays.
On Error Resume Next
x = 5
For x = 100 To 1 / 0
PrintString "limit"
Next
PrintString x & Err                    '> 511
Main2
Sub Main2
On Error Resume Next
x = "kept"
For x = 100 To 1 / 0
PrintString "limit"
Next
PrintString x & Err : Err.Clear        '> kept11
For x = CInt("a") To 9
PrintString "start"
Next
PrintString x & Err : Err.Clear        '> kept13
For x = 1 To 9 Step 40000 * 1E308
PrintString "step"
Next
PrintString x & Err                    '> kept6
For x = 1 To Null
PrintString "Null"
Next
PrintString x & Err                    '> kept94
For global = 1 To "text"
PrintString "text"
Next
PrintString global & Err               '> 13
Select Case 1 / 0
Case 0, Empty
PrintString "Case"
Case Else
PrintString "Case Else"
End Select
PrintString Err : Err.Clear            '> 11
For Each x In 5
PrintString "Each"
Next
PrintString x & Err                    '> kept451
Set global = New Thing
With global
End With
Err.Clear
With 1 / 0
.name = "With"
End With
PrintString Err & global.name          '> 424
For x = 1 To 2
For y = 1 To 1 / 0 : PrintString "inner" : Next
PrintString "outer " & x               '> outer 1
Next                                   '> outer 2
End Sub
Dim global
Class Thing
Public name
End Class
