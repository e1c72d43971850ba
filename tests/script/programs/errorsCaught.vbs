Sub Main()
On Error Resume Next
x = 1 / 0 : PrintString Err.Number & " " & Err.Description '> 11 Division by zero
PrintString Err : Err.Clear                         '> 11
PrintString Err.Number & Err.Description            '> 0
fails                                               '> fails
PrintString "after " & Err.Number                   '> after 13
Err.Raise 5000, "me", "my own"
PrintString Err.Number & Err.Source & Err.Description '> 5000memy own
Err = 12 : PrintString Err                          '> 12
Err.Raise 1001 : PrintString Err.Number             '> 1001
If 1 / 0 Then PrintString "the block is entered"    '> the block is entered
Err.Clear
On Error Resume Next
Fail 57 : PrintString Err.Number & Err.Source & Err.Description '> 57consoleas asked
ParentForm.Unknown : PrintString Err.Number         '> 438
own                                                 '> own goes on
PrintString "own " & Err.Number                     '> own 9
PrintString inner(0) : PrintString Err.Number       '> 11
If 1 = 2 And 1 / 0 = 1 Then
PrintString "after And"                             '> after And
End If
If 1 = 1 Or q.x = 1 Then
PrintString "after Or"                              '> after Or
End If
Err.Description = "mine" : Err.Source = "here" : Err.Raise 7
PrintString Err.Number & Err.Description & Err.Source '> 7minehere
Err.Raise 8, "there" : PrintString Err.Number & Err.Description & Err.Source '> 8minethere
On Error GoTo 0
PrintString Err.Number                              '> 0
y = "abc" + 1 : PrintString "not reached"
'> error 13 line 31
End Sub
Sub fails
PrintString "fails" : z = "abc" * 2 : PrintString "not reached"
End Sub
Sub own
On Error Resume Next
Dim a(2)
a(3) = 1 : PrintString "own goes on"
End Sub
Function inner(n)
inner = 1 / n
End Function
