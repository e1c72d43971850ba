Sub Main()
if not parentform.checkforevents then err.raise 1001
DIM aaaaaaaaab(5) 
if not parentform.checkforevents then err.raise 1001
for aaaaaaaaac = 1  to 5 
if not parentform.checkforevents then err.raise 1001
aaaaaaaaab(aaaaaaaaac) = aaaaaaaaac * aaaaaaaaac 
if not parentform.checkforevents then err.raise 1001
NEXT ' aaaaaaaaac 
if not parentform.checkforevents then err.raise 1001
parentform.InputString aaaaaaaaad 
if not parentform.checkforevents then err.raise 1001
WHILE aaaaaaaaae < 3 
if not parentform.checkforevents then err.raise 1001
IF aaaaaaaaae = 1 THEN 
if not parentform.checkforevents then err.raise 1001
parentform.PrintString "one" & aaaaaaaaad
if not parentform.checkforevents then err.raise 1001
ELSE 
if not parentform.checkforevents then err.raise 1001
parentform.PrintString aaaaaaaaaf ( aaaaaaaaae )
if not parentform.checkforevents then err.raise 1001
END IF 
if not parentform.checkforevents then err.raise 1001
aaaaaaaaae = aaaaaaaaae + 1 
if not parentform.checkforevents then err.raise 1001
WEND 
if not parentform.checkforevents then err.raise 1001
parentform.PrintString aaaaaaaaab(5)
if not parentform.checkforevents then err.raise 1001
parentform.PrintString parentform.Note(1,,,2)
if not parentform.checkforevents then err.raise 1001
aaaaaaaaag aaaaaaaaae
if not parentform.checkforevents then err.raise 1001
parentform.PrintString aaaaaaaaae
if not parentform.checkforevents then err.raise 1001
parentform.StopExecution                                  
if not parentform.checkforevents then err.raise 1001
parentform.PrintString "not reached"
End Sub


Function aaaaaaaaaf ( aaaaaaaaae ) 
if not parentform.checkforevents then err.raise 1001
aaaaaaaaaf = aaaaaaaaae * 2 
if not parentform.checkforevents then err.raise 1001
End Function


Function aaaaaaaaag ( aaaaaaaaae ) 
if not parentform.checkforevents then err.raise 1001
aaaaaaaaae = aaaaaaaaae + 1 
if not parentform.checkforevents then err.raise 1001
End Function
'> 0
'> onetyped
'> 4
'> 25
'> 4
'> 4
'> error 1001 line 38
